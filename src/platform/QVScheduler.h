#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QtGlobal>

#include <chrono>
#include <functional>

/// The one source of time: every delay, timer, animation tick and clock reading goes through it, so
/// that tests can run on a clock of their own. Used on the user-interface thread only.
class QUARVO_CORE_EXPORT QVScheduler
{
public:
    using Action = std::function<void()>;
    /// Names a scheduled action; 0 names none.
    using TaskId = quint64;

    virtual ~QVScheduler();

    /// Time since an arbitrary start; never goes back.
    [[nodiscard]] virtual std::chrono::nanoseconds now() const = 0;
    /// The wall clock.
    [[nodiscard]] virtual double secondsSince1970() const = 0;

    /// Runs \a action once after \a delay, never before this call has returned.
    virtual TaskId schedule(std::chrono::nanoseconds delay, Action action) = 0;
    /// Forgets an action that has not run; does nothing for any other id.
    virtual void cancel(TaskId id) = 0;
    /// How many actions are waiting. An idle component has none.
    [[nodiscard]] virtual qsizetype pendingCount() const = 0;

    [[nodiscard]] static QVScheduler &shared();
    /// Replaces the shared scheduler, which must outlive its use; null brings back the real one.
    static void setShared(QVScheduler *scheduler);
};
