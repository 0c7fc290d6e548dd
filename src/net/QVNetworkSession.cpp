#include "net/QVNetworkSession.h"

#include "net/QVConnectionPool.h"

#include <QCoreApplication>
#include <QSslConfiguration>
#include <QUrl>

#include <memory>

namespace {

// The holder is never destroyed: a host's static application object may be destroyed after our statics.
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
        // Its thread and its sockets must be destroyed before the application object.
        qAddPostRoutine([] { sharedSession().reset(); });
    }
    return *session;
}

QVNetworkSession::QVNetworkSession()
    : m_thread(QStringLiteral("quarvo network"))
{
    m_thread.post([this] { m_pool = std::make_unique<QVConnectionPool>(); });
}

void QVNetworkSession::prepareFor(const QUrl &address)
{
    // Loads Qt's TLS plugin, which takes 10 ms.
    if (address.scheme() == QLatin1String("https"))
        m_thread.post([] { (void)QSslConfiguration::defaultConfiguration(); });
}

QVNetworkSession::~QVNetworkSession()
{
    // Downloads first: their destructors post to the thread.
    qDeleteAll(QObjectList(children()));
    m_thread.post([this] { m_pool.reset(); });
}
