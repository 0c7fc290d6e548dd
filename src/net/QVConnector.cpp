#include "net/QVConnector.h"

#include <QSslSocket>

#include <algorithm>

using namespace std::chrono_literals;

namespace {

// How long one address is waited for until the next one is tried as well. In real time: QVScheduler is for
// the user-interface thread only.
constexpr std::chrono::milliseconds patience = 250ms;

// Puts the first address of the other family (IPv4 or IPv6) second, since one family as a whole may not work.
QList<QHostAddress> inTurns(const QList<QHostAddress> &addresses)
{
    if (addresses.isEmpty())
        return {};
    QList<QHostAddress> result = addresses;
    const auto isLikeFirst = [kind = addresses.first().protocol()](const QHostAddress &address) {
        return address.protocol() == kind;
    };
    const auto other = std::ranges::find_if_not(result, isLikeFirst);
    if (other != result.end())
        std::rotate(result.begin() + 1, other, other + 1);
    return result;
}

} // namespace

QVConnector::QVConnector(const QVRoute &route)
    : m_route(route)
    , m_patience(this)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, &QVConnector::tryNext);
}

QVConnector::~QVConnector()
{
    if (m_lookup >= 0)
        QHostInfo::abortHostLookup(m_lookup);
}

void QVConnector::start()
{
    const QHostAddress literal(m_route.host);
    const bool isTunnelled = m_route.tunnel.type() != QNetworkProxy::NoProxy;
    // A proxy resolves names itself.
    if (isTunnelled || !literal.isNull())
        attempt(m_route.host);
    else
        // SLOT(), since the functor overload of Qt 6.4 leaks its connection if the receiver is destroyed
        // first.
        m_lookup = QHostInfo::lookupHost(m_route.host, this, SLOT(takeAddresses(QHostInfo)));
}

void QVConnector::takeAddresses(const QHostInfo &found)
{
    m_lookup = -1;
    m_addresses = inTurns(found.addresses());
    if (m_addresses.isEmpty())
        Q_EMIT failed(QAbstractSocket::HostNotFoundError);
    else
        tryNext();
}

void QVConnector::tryNext()
{
    if (m_addresses.isEmpty())
        return;
    attempt(m_addresses.takeFirst().toString());
    if (!m_addresses.isEmpty())
        m_patience.start();
}

void QVConnector::attempt(const QString &host)
{
    QTcpSocket *const socket = m_route.tls ? new QSslSocket : new QTcpSocket;
    m_attempts.emplace_back(socket);
    socket->setProxy(m_route.tunnel);
    connect(socket, &QTcpSocket::connected, this, [this, socket] { succeed(socket); });
    connect(socket, &QTcpSocket::errorOccurred, this,
            [this, socket](QAbstractSocket::SocketError error) { giveUp(socket, error); });
    socket->connectToHost(host, m_route.port);
}

void QVConnector::succeed(QTcpSocket *socket)
{
    m_patience.stop();
    m_addresses.clear();
    for (QVSocket &attempt : m_attempts) {
        attempt->disconnect();
        if (attempt.get() == socket)
            m_socket = std::move(attempt);
        else
            qv_endLater(std::move(attempt));
    }
    m_attempts.clear();
    Q_EMIT connected();
}

void QVConnector::giveUp(QTcpSocket *socket, QAbstractSocket::SocketError error)
{
    const auto isFailed = [socket](const QVSocket &attempt) {
        return attempt.get() == socket;
    };
    const auto found = std::ranges::find_if(m_attempts, isFailed);
    qv_endLater(std::move(*found));
    m_attempts.erase(found);
    if (!m_addresses.isEmpty())
        tryNext();
    else if (m_attempts.empty())
        Q_EMIT failed(error);
}
