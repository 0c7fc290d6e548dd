#include "net/QVConnectionPool.h"

#include <algorithm>
#include <utility>

namespace {

// A verification talks to three or four servers.
constexpr std::size_t mostIdle = 8;

// waitForReadyRead() also notices that the server has closed the connection since the event loop last ran.
bool isStillOpen(QTcpSocket &socket)
{
    return socket.state() == QAbstractSocket::ConnectedState && !socket.waitForReadyRead(0) &&
           socket.state() == QAbstractSocket::ConnectedState && socket.bytesAvailable() == 0;
}

} // namespace

QVConnectionPool::QVConnectionPool()
    : m_expiry(this)
{
    m_expiry.setSingleShot(true);
    connect(&m_expiry, &QTimer::timeout, this, &QVConnectionPool::dropExpired);
}

QVSocket QVConnectionPool::take(const QVRoute &route)
{
    dropExpired();
    const auto isOfRoute = [&route](const Idle &idle) {
        return idle.route == route;
    };
    while (true) {
        const auto found = std::ranges::find_if(m_idle, isOfRoute);
        if (found == m_idle.end())
            return nullptr;
        QVSocket socket = std::move(found->socket);
        m_idle.erase(found);
        socket->disconnect(this);
        if (isStillOpen(*socket))
            return socket;
    }
}

void QVConnectionPool::give(const QVRoute &route, QVSocket socket, std::chrono::seconds duration)
{
    const auto dropIt = [this, idle = socket.get()] {
        drop(idle);
    };
    connect(socket.get(), &QTcpSocket::disconnected, this, dropIt);
    connect(socket.get(), &QTcpSocket::readyRead, this, dropIt);
    if (m_idle.size() == mostIdle)
        m_idle.erase(m_idle.begin());
    m_idle.push_back({route, std::move(socket), std::chrono::steady_clock::now() + duration});
    dropExpired();
}

void QVConnectionPool::drop(const QTcpSocket *socket)
{
    const auto found = std::ranges::find(m_idle, socket, [](const Idle &idle) { return idle.socket.get(); });
    if (found == m_idle.end())
        return;
    qv_endLater(std::move(found->socket));
    m_idle.erase(found);
}

void QVConnectionPool::dropExpired()
{
    const auto now = std::chrono::steady_clock::now();
    std::erase_if(m_idle, [now](const Idle &idle) { return idle.end <= now; });
    m_expiry.stop();
    if (m_idle.empty())
        return;
    const auto next = std::ranges::min_element(m_idle, {}, &Idle::end)->end - now;
    m_expiry.start(std::chrono::ceil<std::chrono::milliseconds>(next));
}
