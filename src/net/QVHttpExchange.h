#pragma once

#include "net/QVExchange.h"
#include "net/QVHttpReader.h"
#include "net/QVRoute.h"
#include "net/QVSocket.h"

#include <functional>
#include <memory>

class QVConnectionPool;
class QVConnector;

/// A GET over a connection of our own. It is sent once, whatever becomes of the connection: the service
/// counts what it is sent. Its connection ends with it, or goes to the pool.
///
/// Used on one thread, the network's.
class QVHttpExchange final : public QObject
{
public:
    using Completion = std::function<void(const QVExchange::Result &)>;

    /// Of a body no more than \a bodyLimit bytes are taken. The pool must outlive this. \a completion is
    /// called once, unless this is destroyed before, and must not destroy it.
    QVHttpExchange(QVConnectionPool &pool, const QNetworkRequest &request, qint64 bodyLimit,
                   Completion completion);
    ~QVHttpExchange() override;

    void start();

private:
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
    Completion m_completion;
    bool m_isFinished = false;
};
