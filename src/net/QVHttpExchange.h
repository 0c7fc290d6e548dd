#pragma once

#include "net/QVExchange.h"
#include "net/QVHttpReader.h"
#include "net/QVRoute.h"
#include "net/QVSocket.h"

#include <memory>

class QVConnectionPool;
class QVConnector;

/// A GET over a connection of our own. It is sent once, whatever becomes of the connection: the service
/// counts what it is sent. Its connection ends with it, or goes to the pool.
///
/// Made on the user-interface thread and moved to the network's, where everything but start() happens.
class QVHttpExchange final : public QVExchange
{
    Q_OBJECT

public:
    /// Of a body no more than \a bodyLimit bytes are taken. The pool must outlive this.
    QVHttpExchange(QVConnectionPool &pool, const QNetworkRequest &request, qint64 bodyLimit);
    ~QVHttpExchange() override;

    void start() override;

private:
    void begin();
    void adopt(QVSocket socket);
    void encrypt();
    void send();
    void read();
    void connectionHasEnded(QAbstractSocket::SocketError error);
    void finishWith(QNetworkReply::NetworkError error);

    QVConnectionPool &m_pool;
    QNetworkRequest m_request;
    QVRoute m_route;
    std::unique_ptr<QVConnector> m_connector;
    QVSocket m_socket;
    QVHttpReader m_reader;
    bool m_isFinished = false;
};
