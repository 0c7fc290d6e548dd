#pragma once

#include "platform/QVScheduler.h"
#include "platform/QuarvoCoreExport.h"

/// A one-shot timer that is stopped when it is destroyed. Use QVScheduler directly for an action that must
/// run in any case.
class QUARVO_CORE_EXPORT QVTimer
{
public:
    QVTimer() = default;
    QVTimer(const QVTimer &) = delete;
    QVTimer &operator=(const QVTimer &) = delete;
    ~QVTimer();

    /// Runs \a action once after \a delay. Another start() before that replaces it.
    void start(std::chrono::nanoseconds delay, QVScheduler::Action action);
    void stop();
    [[nodiscard]] bool isActive() const { return m_task != 0; }

private:
    QVScheduler::TaskId m_task = 0;
};
