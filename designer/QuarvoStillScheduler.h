#pragma once

#include "platform/QVScheduler.h"

/// A clock that stands still. Delayed actions and animations do not run.
class QuarvoStillScheduler final : public QVScheduler
{
public:
    [[nodiscard]] std::chrono::nanoseconds now() const override { return {}; }
    [[nodiscard]] double secondsSince1970() const override { return 0; }
    TaskId schedule(std::chrono::nanoseconds delay, Action action) override;
    void cancel(TaskId) override {}
    [[nodiscard]] qsizetype pendingCount() const override { return 0; }

private:
    TaskId m_last = 0;
};
