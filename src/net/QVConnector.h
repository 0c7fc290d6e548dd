#pragma once

#include "net/QVRoute.h"
#include "net/QVSocket.h"

#include <QHostAddress>
#include <QHostInfo>
#include <QTimer>

#include <vector>

/// Makes a connection. Where a name has several addresses they are tried one after the other, the next one
/// soon enough that a broken one costs no more than a moment.
class QVConnector : public QObject
{
    Q_OBJECT

public:
    explicit QVConnector(const QVRoute &route);
    ~QVConnector() override;

    void start();
    /// The connection, once it has been made; not encrypted yet.
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
