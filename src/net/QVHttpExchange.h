#pragma once

#include "net/QVExchange.h"
#include "net/QVHttpReader.h"
#include "net/QVRoute.h"
#include "net/QVSocket.h"

#include <functional>
#include <memory>

class QVConnectionPool;
class QVConnector;

/// A GET request over one of the component's own connections. It is not repeated if the connection breaks,
/// since the service counts requests. Afterwards the connection is closed or given to the pool.
///
/// Used on the network thread only.
class QVHttpExchange final : public QObject
{
public:
    using Completion = std::function<void(const QVExchange::Result &)>;

    /// A body of more than \a bodyLimit bytes is an error. \a pool must outlive this. \a completion is called
    /// once, unless this is destroyed before, and must not destroy this.
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
