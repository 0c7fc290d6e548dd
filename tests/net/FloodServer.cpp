#include "net/FloodServer.h"

#include <arpa/inet.h>
#include <array>
#include <sys/socket.h>
#include <unistd.h>

namespace {

bool sendAll(int connection, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t sent =
            ::send(connection, bytes.data(), static_cast<size_t>(bytes.size()), MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        bytes = bytes.sliced(sent);
    }
    return true;
}

bool receiveRequest(int connection)
{
    QByteArray request;
    std::array<char, 4096> part{};
    while (!request.endsWith("\r\n\r\n")) {
        const ssize_t length = ::recv(connection, part.data(), part.size(), 0);
        if (length <= 0)
            return false;
        request.append(part.data(), length);
    }
    return true;
}

} // namespace

FloodServer::FloodServer()
    : m_listener(::socket(AF_INET, SOCK_STREAM, 0))
{
    sockaddr_in any{};
    any.sin_family = AF_INET;
    any.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    constexpr int backlog = 5;
    if (::bind(m_listener, reinterpret_cast<sockaddr *>(&any), sizeof any) != 0 ||
        ::listen(m_listener, backlog) != 0)
        qFatal("cannot listen on this machine");
    m_thread = std::thread(&FloodServer::accept, this);
}

FloodServer::~FloodServer()
{
    ::shutdown(m_listener, SHUT_RDWR);
    m_thread.join();
    ::close(m_listener);
}

void FloodServer::answer(const QByteArray &head, const QByteArray &flood)
{
    m_head = head;
    constexpr qsizetype atOnce = 1 << 16;
    m_flood = flood.isEmpty() ? flood : flood.repeated(atOnce / flood.size() + 1);
}

QString FloodServer::address() const
{
    sockaddr_in bound{};
    socklen_t size = sizeof bound;
    ::getsockname(m_listener, reinterpret_cast<sockaddr *>(&bound), &size);
    return QStringLiteral("http://127.0.0.1:%1").arg(ntohs(bound.sin_port));
}

void FloodServer::accept()
{
    while (true) {
        const int connection = ::accept(m_listener, nullptr, nullptr);
        if (connection < 0)
            return;
        ++m_open;
        if (receiveRequest(connection)) {
            ++m_requests;
            bool isOpen = sendAll(connection, m_head);
            while (isOpen && !m_flood.isEmpty())
                isOpen = sendAll(connection, m_flood);
        }
        ::close(connection);
        --m_open;
    }
}
