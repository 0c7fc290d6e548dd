#pragma once

#include <QByteArray>
#include <QSemaphore>
#include <QString>

#include <atomic>
#include <thread>
#include <vector>

/// A server on a port of this machine that does to each connection what no library would: sends without end,
/// as fast as it can, in threads of its own and over bare sockets.
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
    void serve(int connection);

    int m_listener;
    QByteArray m_head;
    QByteArray m_flood;
    std::atomic<int> m_requests = 0;
    std::atomic<int> m_open = 0;
    std::vector<std::thread> m_threads;
    std::thread m_acceptor;
};
