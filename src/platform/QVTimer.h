#pragma once

#include "platform/QVScheduler.h"
#include "platform/QuarvoCoreExport.h"

/// A one-shot timer that ends with its owner. An action that must run in any case is scheduled directly
/// instead.
class QUARVO_CORE_EXPORT QVTimer
{
public:
    QVTimer() = default;
    QVTimer(const QVTimer &) = delete;
    QVTimer &operator=(const QVTimer &) = delete;
    ~QVTimer();

    /// Runs \a action once after \a delay; a start before that replaces the earlier one.
    void start(std::chrono::nanoseconds delay, QVScheduler::Action action);
    void stop();
    [[nodiscard]] bool isActive() const { return m_task != 0; }

private:
    QVScheduler::TaskId m_task = 0;
};
