#include "secrets/QVDeferredStore.h"

#include <system_error>
#include <utility>

QVDeferredStore::QVDeferredStore(Make make, std::chrono::milliseconds limit)
    : m_make(std::move(make))
    , m_limit(limit)
{
}

QVDeferredStore::~QVDeferredStore() = default;

QVSecureStore::Answer QVDeferredStore::copyMatching(const QVSecureQuery &query, Return what)
{
    Answer answer;
    answer.status = with([&](QVSecureStore &store) {
        answer = store.copyMatching(query, what);
        return answer.status;
    });
    return answer;
}

QVSecureStatus QVDeferredStore::add(const QVSecureItem &item)
{
    return with([&](QVSecureStore &store) { return store.add(item); });
}

QVSecureStatus QVDeferredStore::update(const QVSecureQuery &query, const QByteArray &data,
                                       const QString &accessibility)
{
    return with([&](QVSecureStore &store) { return store.update(query, data, accessibility); });
}

QVSecureStatus QVDeferredStore::deleteMatching(const QVSecureQuery &query)
{
    return with([&](QVSecureStore &store) { return store.deleteMatching(query); });
}

void QVDeferredStore::prepare()
{
    if (m_preparation.joinable())
        return;
    try {
        m_preparation = std::jthread([this] {
            const std::scoped_lock lock(m_mutex);
            if (QVSecureStore *const made = store())
                made->prepare();
        });
    } catch (const std::system_error &) {
        // No thread to be had; the first call does the work.
    }
}

QVSecureStatus QVDeferredStore::with(const std::function<QVSecureStatus(QVSecureStore &)> &call)
{
    const std::unique_lock lock(m_mutex, m_limit);
    QVSecureStore *const made = lock ? store() : nullptr;
    return made ? call(*made) : QVSecureStatus::NotAvailable;
}

QVSecureStore *QVDeferredStore::store()
{
    if (!m_store)
        m_store = m_make();
    return m_store.get();
}
