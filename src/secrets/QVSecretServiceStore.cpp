#include "secrets/QVSecretServiceStore.h"

#include "secrets/QVSecretCalls.h"

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

QVSecureStore *quarvoSecretStore(std::chrono::milliseconds limit, QVSecretClock clock)
{
    return std::make_unique<QVSecretServiceStore>(limit, std::move(clock)).release();
}

QVSecretServiceStore::QVSecretServiceStore(std::chrono::milliseconds limit, QVSecretClock clock)
    : m_limit(limit)
    , m_now(std::move(clock))
    , m_context(g_main_context_new())
{
}

QVSecretServiceStore::~QVSecretServiceStore() = default;

QVSecureStore::Answer QVSecretServiceStore::copyMatching(const QVSecureQuery &query, Return what)
{
    Answer answer;
    answer.status = perform([&](QVSecretCalls &calls) {
        answer.items.clear();
        if (what == Return::Data) {
            answer.items.append(QVSecureItem());
            return read(calls, query, answer.items.first().data);
        }
        QVSecretCalls::Paths paths;
        const auto found = calls.search(query, paths);
        const bool isDone = found != QVSecureStatus::Success || what == Return::Nothing;
        return isDone ? found : readAll(calls, paths, answer.items);
    });
    return answer;
}

// A path alone is not to be trusted: the service may have given it to another program's item since. So
// the search is made each time, and what was read from where it led last is taken only if it still
// leads there; both questions are on their way at once.
QVSecureStatus QVSecretServiceStore::read(QVSecretCalls &calls, const QVSecureQuery &query, QByteArray &data)
{
    QVSecretCalls::Paths paths;
    std::optional<QVSecretCalls::Reading> reading;
    const auto status = calls.search(query, paths, [&] {
        if (m_lastFound && m_lastFound->query == query)
            reading = calls.beginReading(m_lastFound->path);
    });
    if (status != QVSecureStatus::Success)
        return status;
    if (!reading || paths.front() != m_lastFound->path) {
        m_lastFound = Found{query, paths.front()};
        reading = calls.beginReading(paths.front());
    }
    return calls.finishReading(*reading, data);
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
    // A call may have been faster, or have found out that the service hangs.
    if (m_connection || m_leftAloneUntil.count() > 0)
        return;
    QVGlibLoop loop(m_context.get(), m_limit);
    (void)attempt(loop, [](QVSecretCalls &calls) { return calls.openSession(); });
    m_hungInPreparation = loop.isOutOfTime();
}

QVSecureStatus QVSecretServiceStore::perform(const Operation &operation)
{
    if (std::exchange(m_hungInPreparation, false))
        leaveAlone();
    if (m_now() < m_leftAloneUntil)
        return QVSecureStatus::NotAvailable;
    QVGlibLoop loop(m_context.get(), m_limit);
    const auto start = std::chrono::steady_clock::now();
    const bool isKept = m_connection != nullptr;
    auto status = attempt(loop, operation);
    // A kept connection may be to a service that was started anew since.
    if (status == QVSecureStatus::NotAvailable && isKept)
        status = attempt(loop, operation);
    const bool tookLong = std::chrono::steady_clock::now() - start > m_limit / 4;
    if (loop.isOutOfTime() || (status == QVSecureStatus::NotAvailable && tookLong))
        leaveAlone();
    return status;
}

void QVSecretServiceStore::leaveAlone()
{
    m_leftAloneUntil = m_now() + pauseAfterHang;
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
    if (status == QVSecureStatus::NotAvailable) {
        m_connection.reset();
        m_lastFound.reset();
    }
    return status;
}
