#include "secrets/QVGlibLoop.h"

#include "secrets/QVGlibError.h"

namespace {

// A cancelled call ends at the next turn of the loop, save where it must come back from a thread.
constexpr std::chrono::milliseconds cancellationLimit(100);

} // namespace

struct QVGlibLoop::Call
{
    bool isDone = false;
    QVGlibPointer<GAsyncResult> result;
};

class QVGlibLoop::Timeout
{
public:
    Timeout(GMainContext *context, std::chrono::milliseconds limit)
        : m_source(g_timeout_source_new(static_cast<guint>(limit.count())))
    {
        g_source_set_callback(m_source.get(), &Timeout::expire, this, nullptr);
        g_source_attach(m_source.get(), context);
    }
    Timeout(const Timeout &) = delete;
    Timeout &operator=(const Timeout &) = delete;
    ~Timeout() { g_source_destroy(m_source.get()); }

    [[nodiscard]] bool isExpired() const { return m_isExpired; }

private:
    static gboolean expire(gpointer timeout)
    {
        static_cast<Timeout *>(timeout)->m_isExpired = true;
        return G_SOURCE_REMOVE;
    }

    std::unique_ptr<GSource, QVGlibRelease<g_source_unref>> m_source;
    bool m_isExpired = false;
};

QVGlibLoop::QVGlibLoop(GMainContext *context, std::chrono::milliseconds limit)
    : m_context(context)
    , m_timeout(std::make_unique<Timeout>(context, limit))
{
    g_main_context_push_thread_default(context);
}

QVGlibLoop::~QVGlibLoop()
{
    g_main_context_pop_thread_default(m_context);
}

QVGlibLoop::Pending QVGlibLoop::begin(const Begin &begin)
{
    Pending pending;
    if (isOutOfTime())
        return pending;
    pending.m_loop = this;
    pending.m_call = std::make_shared<Call>();
    pending.m_cancellable.reset(g_cancellable_new());
    // The call's own share: should it answer after all that, it finds something to answer to.
    begin(pending.m_cancellable.get(), &QVGlibLoop::finished,
          std::make_unique<std::shared_ptr<Call>>(pending.m_call).release());
    return pending;
}

QVSecureStatus QVGlibLoop::Pending::wait(const Finish &finish)
{
    const auto answer = result();
    if (!answer)
        return QVSecureStatus::NotAvailable;
    QVGlibError error;
    finish(answer.get(), error.place());
    return error.status();
}

QVGlibPointer<GAsyncResult> QVGlibLoop::Pending::result()
{
    if (!m_call)
        return nullptr;
    m_loop->iterateUntilDone(*m_call, *m_loop->m_timeout);
    if (m_call->isDone)
        return std::move(m_call->result);
    g_cancellable_cancel(m_cancellable.get());
    m_loop->iterateUntilDone(*m_call, Timeout(m_loop->m_context, cancellationLimit));
    return nullptr;
}

bool QVGlibLoop::isOutOfTime() const
{
    return m_timeout->isExpired();
}

void QVGlibLoop::finished(GObject *, GAsyncResult *result, gpointer call)
{
    const std::unique_ptr<std::shared_ptr<Call>> share(static_cast<std::shared_ptr<Call> *>(call));
    (*share)->result.reset(static_cast<GAsyncResult *>(g_object_ref(result)));
    (*share)->isDone = true;
}

void QVGlibLoop::iterateUntilDone(const Call &call, const Timeout &timeout)
{
    while (!call.isDone && !timeout.isExpired())
        g_main_context_iteration(m_context, TRUE);
}
