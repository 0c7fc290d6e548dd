#pragma once

#include "net/QVRoute.h"
#include "net/QVSocket.h"

#include <QHostAddress>
#include <QHostInfo>
#include <QTimer>

#include <vector>

/// Connects to a server. If a name has several addresses and one does not answer within a quarter of a
/// second, the next one is tried at the same time. The first that connects is used.
class QVConnector : public QObject
{
    Q_OBJECT

public:
    explicit QVConnector(const QVRoute &route);
    ~QVConnector() override;

    void start();
    /// The connection, once connected() has been emitted. It is not encrypted yet.
    [[nodiscard]] QVSocket takeSocket() { return std::move(m_socket); }

Q_SIGNALS:
    void connected();
    void failed(QAbstractSocket::SocketError error);

private:
    Q_SLOT void takeAddresses(const QHostInfo &found);
    void tryNext();
    void attempt(const QString &host);
    void succeed(QTcpSocket *socket);
    void giveUp(QTcpSocket *socket, QAbstractSocket::SocketError error);

    QVRoute m_route;
    int m_lookup = -1;
    QList<QHostAddress> m_addresses;
    QTimer m_patience;
    std::vector<QVSocket> m_attempts;
    QVSocket m_socket;
};
