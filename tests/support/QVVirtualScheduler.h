#pragma once

#include "platform/QVScheduler.h"

#include <map>

/// A clock that stands still until a test moves it. While it lives, it is the shared scheduler.
class QVVirtualScheduler final : public QVScheduler
{
public:
    QVVirtualScheduler();
    ~QVVirtualScheduler() override;

    [[nodiscard]] std::chrono::nanoseconds now() const override { return m_now; }
    [[nodiscard]] double secondsSince1970() const override;
    TaskId schedule(std::chrono::nanoseconds delay, Action action) override;
    void cancel(TaskId id) override;
    [[nodiscard]] qsizetype pendingCount() const override;

    /// Runs everything due within \a duration, in order, each at its own time.
    void advance(std::chrono::nanoseconds duration);

private:
    using Due = std::pair<std::chrono::nanoseconds, TaskId>;

    void runUntil(std::chrono::nanoseconds end);

    std::chrono::nanoseconds m_now{std::chrono::hours(1)};
    std::map<Due, Action> m_tasks;
    TaskId m_lastId = 0;
};
