#include "net/QVNetworkSession.h"

#include "net/QVConnectionPool.h"
#include "net/QVHttpExchange.h"

#include <QCoreApplication>

#include <memory>

namespace {

// Never destroyed by itself: an application object that is a host's static may end after our statics.
std::unique_ptr<QVNetworkSession> &sharedSession()
{
    static auto *const session = new std::unique_ptr<QVNetworkSession>;
    return *session;
}

} // namespace

QVNetworkSession &QVNetworkSession::shared()
{
    std::unique_ptr<QVNetworkSession> &session = sharedSession();
    if (!session) {
        session = std::make_unique<QVNetworkSession>();
        // Its thread and its sockets must be gone before the application object is.
        qAddPostRoutine([] { sharedSession().reset(); });
    }
    return *session;
}

QVNetworkSession::QVNetworkSession()
    : m_pool(new QVConnectionPool)
{
    m_thread.setObjectName(QStringLiteral("quarvo network"));
    m_pool->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_pool, &QObject::deleteLater);
    m_thread.start();
}

QVNetworkSession::~QVNetworkSession()
{
    // Downloads first: their exchanges end on the thread.
    qDeleteAll(QObjectList(children()));
    m_thread.quit();
    m_thread.wait();
}

QVExchange *QVNetworkSession::newExchange(const QNetworkRequest &request, qint64 bodyLimit)
{
    auto *const exchange = new QVHttpExchange(*m_pool, request, bodyLimit);
    exchange->moveToThread(&m_thread);
    return exchange;
}
