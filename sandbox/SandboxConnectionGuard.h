#pragma once

#include <QObject>
#include <QTcpSocket>
#include <QTimer>

/// Closes a connection that sends more than any request has, or is silent for long. The HTTP server itself
/// reads without a limit, and keeps a connection whose request it could not read.
class SandboxConnectionGuard : public QObject
{
    Q_OBJECT

public:
    /// Becomes a child of \a socket.
    explicit SandboxConnectionGuard(QTcpSocket *socket);

private:
    void countReceived();
    void forgetReceived();
    void end();

    QTcpSocket *m_socket;
    QTimer m_silence;
    qint64 m_received = 0;
};

/// A TCP or TLS server that adds a guard to each connection.
template<class Server>
class SandboxGuardedServer : public Server
{
public:
    QTcpSocket *nextPendingConnection() override
    {
        QTcpSocket *socket = Server::nextPendingConnection();
        if (socket)
            new SandboxConnectionGuard(socket);
        return socket;
    }
};
