#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QtGlobal>

#include <chrono>
#include <functional>

/// The only source of time: every delay, timer, animation tick and clock reading goes through it, so that
/// tests can use virtual time. Used on the user-interface thread only.
class QUARVO_CORE_EXPORT QVScheduler
{
public:
    using Action = std::function<void()>;
    /// Identifies a scheduled action; 0 is no action.
    using TaskId = quint64;

    virtual ~QVScheduler();

    /// Time since an arbitrary start; never goes back.
    [[nodiscard]] virtual std::chrono::nanoseconds now() const = 0;
    /// The wall clock, in seconds.
    [[nodiscard]] virtual double secondsSince1970() const = 0;

    /// Runs \a action once after \a delay, never before this call has returned.
    virtual TaskId schedule(std::chrono::nanoseconds delay, Action action) = 0;
    /// Drops an action that has not run. Does nothing for any other id.
    virtual void cancel(TaskId id) = 0;
    /// How many actions are waiting. An idle component has none.
    [[nodiscard]] virtual qsizetype pendingCount() const = 0;

    [[nodiscard]] static QVScheduler &shared();
    /// Replaces the shared scheduler by \a scheduler, which must outlive its use. Null restores real time.
    static void setShared(QVScheduler *scheduler);
};
