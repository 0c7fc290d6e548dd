#include "net/QVHttpExchange.h"

#include "net/QVConnectionPool.h"
#include "net/QVConnector.h"

#include <QSslSocket>

namespace {

// The most that waits here to be read. The rest waits in the system, which makes the sender wait, too.
constexpr qint64 readAtOnce = 1 << 16;

QNetworkReply::NetworkError errorOf(QAbstractSocket::SocketError error)
{
    switch (error) {
    case QAbstractSocket::ConnectionRefusedError:
        return QNetworkReply::ConnectionRefusedError;
    case QAbstractSocket::RemoteHostClosedError:
        return QNetworkReply::RemoteHostClosedError;
    case QAbstractSocket::HostNotFoundError:
        return QNetworkReply::HostNotFoundError;
    case QAbstractSocket::SocketTimeoutError:
        return QNetworkReply::TimeoutError;
    case QAbstractSocket::SslHandshakeFailedError:
    case QAbstractSocket::SslInternalError:
    case QAbstractSocket::SslInvalidUserDataError:
        return QNetworkReply::SslHandshakeFailedError;
    case QAbstractSocket::ProxyAuthenticationRequiredError:
    case QAbstractSocket::ProxyConnectionRefusedError:
    case QAbstractSocket::ProxyConnectionClosedError:
    case QAbstractSocket::ProxyConnectionTimeoutError:
    case QAbstractSocket::ProxyNotFoundError:
    case QAbstractSocket::ProxyProtocolError:
        return QNetworkReply::UnknownProxyError;
    default:
        return QNetworkReply::UnknownNetworkError;
    }
}

} // namespace

QVHttpExchange::QVHttpExchange(QVConnectionPool &pool, const QNetworkRequest &request, qint64 bodyLimit,
                               Completion completion)
    : m_pool(pool)
    , m_request(request)
    , m_reader(bodyLimit)
    , m_completion(std::move(completion))
{
}

QVHttpExchange::~QVHttpExchange() = default;

void QVHttpExchange::start()
{
    m_route = qv_routeOf(m_request);
    if (QVSocket open = m_pool.take(m_route)) {
        adopt(std::move(open));
        send();
        return;
    }
    m_connector = std::make_unique<QVConnector>(m_route);
    connect(m_connector.get(), &QVConnector::failed, this,
            [this](QAbstractSocket::SocketError error) { finishWith(errorOf(error)); });
    connect(m_connector.get(), &QVConnector::connected, this, [this] {
        adopt(m_connector->takeSocket());
        m_route.tls ? encrypt() : send();
    });
    m_connector->start();
}

void QVHttpExchange::adopt(QVSocket socket)
{
    m_socket = std::move(socket);
    m_socket->setReadBufferSize(readAtOnce);
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(m_socket.get(), &QTcpSocket::readyRead, this, &QVHttpExchange::read);
    connect(m_socket.get(), &QTcpSocket::errorOccurred, this, &QVHttpExchange::connectionHasEnded);
}

void QVHttpExchange::encrypt()
{
    auto *const socket = static_cast<QSslSocket *>(m_socket.get());
    connect(socket, &QSslSocket::encrypted, this, &QVHttpExchange::send);
    socket->setSslConfiguration(*m_route.tls);
    socket->setPeerVerifyName(m_route.host);
    socket->startClientEncryption();
}

void QVHttpExchange::send()
{
    m_socket->write(qv_requestBytes(m_request, m_route));
}

void QVHttpExchange::read()
{
    m_reader.read(m_socket->readAll());
    if (m_reader.state() == QVHttpReader::State::Complete)
        finishWith(QNetworkReply::NoError);
    else if (m_reader.state() == QVHttpReader::State::Broken)
        finishWith(QNetworkReply::ProtocolFailure);
}

void QVHttpExchange::connectionHasEnded(QAbstractSocket::SocketError error)
{
    read();
    if (m_isFinished)
        return;
    if (error == QAbstractSocket::RemoteHostClosedError)
        m_reader.end();
    const bool isWhole = m_reader.state() == QVHttpReader::State::Complete;
    const bool isBroken = m_reader.state() == QVHttpReader::State::Broken;
    finishWith(isWhole ? QNetworkReply::NoError : isBroken ? QNetworkReply::ProtocolFailure : errorOf(error));
}

void QVHttpExchange::finishWith(QNetworkReply::NetworkError error)
{
    if (m_isFinished)
        return;
    m_isFinished = true;
    if (m_socket) {
        m_socket->disconnect(this);
        const bool isSent = m_socket->bytesToWrite() == 0;
        if (isSent && m_reader.keepAlive().count() > 0)
            m_pool.give(m_route, std::move(m_socket), m_reader.keepAlive());
        else
            qv_endLater(std::move(m_socket));
    }
    m_completion({m_reader.body(), m_reader.head().status(), m_reader.head().location(), error});
}
