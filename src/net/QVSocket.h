#pragma once

#include <QTcpSocket>

#include <memory>

struct QVSocketEnd
{
    /// Disconnects all slots first: closing a socket ourselves must not emit a signal.
    void operator()(QTcpSocket *socket) const
    {
        socket->disconnect();
        delete socket;
    }
};

/// A socket that is closed without a signal. Must not be destroyed in a slot of its own signals.
using QVSocket = std::unique_ptr<QTcpSocket, QVSocketEnd>;

/// Destroys \a socket from the event loop. For slots of its own signals.
inline void qv_endLater(QVSocket socket)
{
    socket->disconnect();
    socket.release()->deleteLater();
}
