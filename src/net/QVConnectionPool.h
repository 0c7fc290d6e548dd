#pragma once

#include "net/QVRoute.h"
#include "net/QVSocket.h"

#include <QTimer>

#include <chrono>
#include <vector>

/// Idle connections that can be used again. Lives on the thread of their sockets. A connection is dropped
/// when the server closes it or sends data unasked, or when its time is up.
class QVConnectionPool : public QObject
{
    Q_OBJECT

public:
    QVConnectionPool();

    /// An idle connection for \a route that is still open; null if there is none.
    [[nodiscard]] QVSocket take(const QVRoute &route);
    /// Keeps an idle connection for \a duration.
    void give(const QVRoute &route, QVSocket socket, std::chrono::seconds duration);

private:
    struct Idle
    {
        QVRoute route;
        QVSocket socket;
        std::chrono::steady_clock::time_point end;
    };

    void drop(const QTcpSocket *socket);
    void dropExpired();

    std::vector<Idle> m_idle;
    QTimer m_expiry;
};
