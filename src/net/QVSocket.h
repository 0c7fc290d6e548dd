#pragma once

#include <QTcpSocket>

#include <memory>

struct QVSocketEnd
{
    /// Nobody hears of an end that is our own.
    void operator()(QTcpSocket *socket) const
    {
        socket->disconnect();
        delete socket;
    }
};

/// A socket that is closed without a signal. Never destroyed in a slot of its own signals.
using QVSocket = std::unique_ptr<QTcpSocket, QVSocketEnd>;

/// Ends \a socket once the signal that is being handled has returned.
inline void qv_endLater(QVSocket socket)
{
    socket->disconnect();
    socket.release()->deleteLater();
}
