#pragma once

#include "platform/QVError.h"
#include "support/QVText.h"

#include <QCoreApplication>
#include <QScopeGuard>
#include <QThread>

#include <memory>
#include <optional>

/// Watches one asynchronous call: what it completed with, and whether it kept to the rules that
/// hold for all of them.
template<class Result>
class QVCompletionProbe
{
public:
    /// Makes the call: \a start gets the completion to hand over, and its own result is handed on.
    template<class Start>
    auto run(const Start &start)
    {
        const auto seen = m_seen;
        const auto returned = qScopeGuard([seen] { seen->hasReturned = true; });
        return start([seen](Result result, const std::optional<QVError> &error) {
            ++seen->count;
            seen->isEarly = seen->isEarly || !seen->hasReturned;
            seen->isElsewhere =
                seen->isElsewhere || QThread::currentThread() != QCoreApplication::instance()->thread();
            seen->result = std::move(result);
            seen->error = error;
        });
    }

    [[nodiscard]] bool isDone() const { return m_seen->count > 0; }
    [[nodiscard]] Result result() const { return m_seen->result; }
    [[nodiscard]] std::optional<QVError> error() const { return m_seen->error; }
    /// The error's code; 0 where there is none.
    [[nodiscard]] qint64 code() const { return m_seen->error ? m_seen->error->code() : 0; }

    /// The rule that was broken, empty where none was: completes exactly once, on the main thread,
    /// after the call has returned.
    [[nodiscard]] QString fault() const
    {
        if (m_seen->count != 1)
            return q("completed %1 times").arg(m_seen->count);
        if (m_seen->isEarly)
            return q("completed before the call returned");
        return m_seen->isElsewhere ? q("completed on another thread") : QString();
    }

private:
    struct Seen
    {
        int count = 0;
        bool hasReturned = false;
        bool isEarly = false;
        bool isElsewhere = false;
        Result result{};
        std::optional<QVError> error;
    };

    std::shared_ptr<Seen> m_seen = std::make_shared<Seen>();
};
