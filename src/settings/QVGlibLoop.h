#pragma once

#include "settings/QVGlibPointer.h"

#include <chrono>
#include <functional>
#include <memory>

/// Waits for GLib's asynchronous calls, one after the other, until the last is done or the time is up.
///
/// They run in a main context that nobody else uses, which is the thread's default as long as the
/// loop lives; so no event of the host is delivered meanwhile.
class QVGlibLoop
{
public:
    using Begin = std::function<void(GCancellable *, GAsyncReadyCallback, gpointer)>;

    QVGlibLoop(GMainContext *context, std::chrono::milliseconds limit);
    QVGlibLoop(const QVGlibLoop &) = delete;
    QVGlibLoop &operator=(const QVGlibLoop &) = delete;
    ~QVGlibLoop();

    /// Begins a call and waits for it. Null when the time is up: the call is cancelled then, and what
    /// it may still answer is dropped.
    [[nodiscard]] QVGlibPointer<GAsyncResult> run(const Begin &begin);
    [[nodiscard]] bool isOutOfTime() const;

private:
    struct Call;
    class Timeout;

    static void finished(GObject *source, GAsyncResult *result, gpointer call);
    void iterateUntilDone(const Call &call, const Timeout &timeout);

    GMainContext *m_context;
    std::unique_ptr<Timeout> m_timeout;
};
