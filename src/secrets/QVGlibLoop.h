#pragma once

#include "secrets/QVGlibPointer.h"
#include "secrets/QVSecureItem.h"

#include <chrono>
#include <functional>
#include <memory>

/// Waits for GLib's asynchronous calls, one after the other, until the last is done or the time is up.
///
/// They run in a main context that nobody else uses, which is the thread's default as long as the
/// loop lives; so no event of the host is delivered meanwhile.
class QVGlibLoop
{
    struct Call;

public:
    using Begin = std::function<void(GCancellable *, GAsyncReadyCallback, gpointer)>;

    using Finish = std::function<void(GAsyncResult *, GError **)>;

    /// A call that is under way; one that nobody waits for is dropped.
    class Pending
    {
    public:
        /// Waits for the call, whose answer \a finish takes. Not available when the loop's time is up:
        /// the call is cancelled then, and what it may still answer is dropped.
        [[nodiscard]] QVSecureStatus wait(const Finish &finish);

    private:
        friend class QVGlibLoop;

        [[nodiscard]] QVGlibPointer<GAsyncResult> result();

        QVGlibLoop *m_loop = nullptr;
        std::shared_ptr<Call> m_call;
        QVGlibPointer<GCancellable> m_cancellable;
    };

    QVGlibLoop(GMainContext *context, std::chrono::milliseconds limit);
    QVGlibLoop(const QVGlibLoop &) = delete;
    QVGlibLoop &operator=(const QVGlibLoop &) = delete;
    ~QVGlibLoop();

    /// Begins a call.
    [[nodiscard]] Pending begin(const Begin &begin);
    /// Begins a call and waits for it.
    [[nodiscard]] QVSecureStatus run(const Begin &begin, const Finish &finish)
    {
        return this->begin(begin).wait(finish);
    }
    [[nodiscard]] bool isOutOfTime() const;

private:
    class Timeout;

    static void finished(GObject *source, GAsyncResult *result, gpointer call);
    void iterateUntilDone(const Call &call, const Timeout &timeout);

    GMainContext *m_context;
    std::unique_ptr<Timeout> m_timeout;
};
