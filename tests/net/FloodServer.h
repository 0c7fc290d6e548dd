#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>
#include <thread>

/// A server on a port of this machine that does to each connection what no library would: sends without end,
/// as fast as it can, in a thread of its own and over bare sockets. Serves one connection after the other.
class FloodServer
{
public:
    FloodServer();
    ~FloodServer();
    Q_DISABLE_COPY(FloodServer)

    /// From now on answers begin with \a head and go on with \a flood until their connection has gone. With
    /// an empty flood they end after the head.
    void answer(const QByteArray &head, const QByteArray &flood);

    [[nodiscard]] QString address() const;
    [[nodiscard]] int requestCount() const { return m_requests; }
    /// How many connections are open.
    [[nodiscard]] int openCount() const { return m_open; }

private:
    void accept();

    int m_listener;
    QByteArray m_head;
    QByteArray m_flood;
    std::atomic<int> m_requests = 0;
    std::atomic<int> m_open = 0;
    std::thread m_thread;
};
