#include "settings/QVSecretServiceStore.h"

#include "platform/QVScheduler.h"
#include "settings/QVSecretCalls.h"

#include <utility>

namespace {

constexpr std::chrono::seconds pauseAfterHang(30);

QVSecureStatus readAll(QVSecretCalls &calls, const QVSecretCalls::Paths &paths, QList<QVSecureItem> &items)
{
    for (const std::string &path : paths) {
        QVSecureItem item;
        const auto status = calls.readAttributes(path, item);
        if (status != QVSecureStatus::Success)
            return status;
        items.append(item);
    }
    return QVSecureStatus::Success;
}

} // namespace

std::unique_ptr<QVSecureStore> QVSecureStore::create(std::chrono::milliseconds limit)
{
    return std::make_unique<QVSecretServiceStore>(limit);
}

QVSecretServiceStore::QVSecretServiceStore(std::chrono::milliseconds limit)
    : m_limit(limit)
    , m_context(g_main_context_new())
{
}

QVSecretServiceStore::~QVSecretServiceStore() = default;

QVSecureStore::Answer QVSecretServiceStore::copyMatching(const QVSecureQuery &query, Return what)
{
    Answer answer;
    answer.status = perform([&](QVSecretCalls &calls) {
        QVSecretCalls::Paths paths;
        answer.items.clear();
        const auto found = calls.search(query, paths);
        if (found != QVSecureStatus::Success || what == Return::Nothing)
            return found;
        if (what == Return::Attributes)
            return readAll(calls, paths, answer.items);
        answer.items.append(QVSecureItem());
        return calls.readData(paths.front(), answer.items.first().data);
    });
    return answer;
}

QVSecureStatus QVSecretServiceStore::add(const QVSecureItem &item)
{
    const auto status = perform([&](QVSecretCalls &calls) { return calls.create(item); });
    // What is missing is the collection to add to; making one would ask the user for a password.
    return status == QVSecureStatus::ItemNotFound ? QVSecureStatus::NotAvailable : status;
}

QVSecureStatus QVSecretServiceStore::update(const QVSecureQuery &query, const QByteArray &data,
                                            const QString &accessibility)
{
    return perform([&](QVSecretCalls &calls) {
        QVSecretCalls::Paths paths;
        const auto found = calls.search(query, paths);
        return found == QVSecureStatus::Success ? calls.replace(paths.front(), data, accessibility) : found;
    });
}

QVSecureStatus QVSecretServiceStore::deleteMatching(const QVSecureQuery &query)
{
    return perform([&](QVSecretCalls &calls) {
        QVSecretCalls::Paths paths;
        auto status = calls.search(query, paths);
        for (auto path = paths.cbegin(); status == QVSecureStatus::Success && path != paths.cend(); ++path)
            status = calls.remove(*path);
        return status;
    });
}

void QVSecretServiceStore::prepare()
{
    if (m_preparation.joinable())
        return;
    m_preparation = std::jthread([this] {
        const std::scoped_lock lock(m_mutex);
        // A call may have been faster, or have found out that the service hangs.
        if (m_connection || m_leftAloneUntil.count() > 0)
            return;
        QVGlibLoop loop(m_context.get(), m_limit);
        (void)attempt(loop, [](QVSecretCalls &calls) { return calls.openSession(); });
        m_hungInPreparation = loop.isOutOfTime();
    });
}

QVSecureStatus QVSecretServiceStore::perform(const Operation &operation)
{
    const std::scoped_lock lock(m_mutex);
    if (std::exchange(m_hungInPreparation, false))
        m_leftAloneUntil = QVScheduler::shared().now() + pauseAfterHang;
    if (QVScheduler::shared().now() < m_leftAloneUntil)
        return QVSecureStatus::NotAvailable;
    QVGlibLoop loop(m_context.get(), m_limit);
    const bool isKept = m_connection != nullptr;
    auto status = attempt(loop, operation);
    // A kept connection may be to a service that was started anew since.
    if (status == QVSecureStatus::NotAvailable && isKept)
        status = attempt(loop, operation);
    if (loop.isOutOfTime())
        m_leftAloneUntil = QVScheduler::shared().now() + pauseAfterHang;
    return status;
}

QVSecureStatus QVSecretServiceStore::attempt(QVGlibLoop &loop, const Operation &operation)
{
    auto status = QVSecureStatus::Success;
    if (!m_connection) {
        m_connection = std::make_unique<QVSecretConnection>();
        status = m_connection->open(loop);
    }
    if (status == QVSecureStatus::Success) {
        QVSecretCalls calls(loop, m_connection->service());
        status = operation(calls);
    }
    if (status == QVSecureStatus::NotAvailable)
        m_connection.reset();
    return status;
}
