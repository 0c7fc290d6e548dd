#pragma once

#include "net/QVRoute.h"
#include "net/QVSocket.h"

#include <QTimer>

#include <chrono>
#include <vector>

/// Connections that wait to be used once more. Lives on the thread of their sockets. A connection is
/// dropped when its server closes it, says something unasked, or may be about to close it.
class QVConnectionPool : public QObject
{
    Q_OBJECT

public:
    QVConnectionPool();

    /// A connection of that route that was open a moment ago; null where there is none.
    [[nodiscard]] QVSocket take(const QVRoute &route);
    /// Keeps a connection for \a duration.
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
