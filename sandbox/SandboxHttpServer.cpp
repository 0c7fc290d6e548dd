#include "sandbox/SandboxHttpServer.h"

#include "sandbox/SandboxAnswer.h"

#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>

#include <algorithm>
#include <utility>

namespace {

void write(QHttpServerResponder &responder, const SandboxAnswer &answer)
{
    const auto status = QHttpServerResponder::StatusCode(answer.status);
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QHttpHeaders headers;
    headers.append(QHttpHeaders::WellKnownHeader::ContentType, answer.contentType);
    headers.append(QHttpHeaders::WellKnownHeader::CacheControl, "no-store");
    responder.write(answer.body, headers, status);
#else
    responder.write(answer.body, {{"Content-Type", answer.contentType}, {"Cache-Control", "no-store"}},
                    status);
#endif
}

} // namespace

SandboxHttpServer::SandboxHttpServer(Handler handler)
    : m_handler(std::move(handler))
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    m_server.setMissingHandler(
        &m_server, [this](const auto &request, auto &responder) { handle(request, std::move(responder)); });
#else
    m_server.setMissingHandler(std::bind_front(&SandboxHttpServer::handle, this));
#endif
}

bool SandboxHttpServer::serve(std::unique_ptr<QTcpServer> tcpServer)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    if (!m_server.bind(tcpServer.get()))
        return false;
#else
    m_server.bind(tcpServer.get());
#endif
    // The HTTP server owns it now.
    static_cast<void>(tcpServer.release());
    return true;
}

void SandboxHttpServer::handle(const QHttpServerRequest &request, QHttpServerResponder &&given)
{
    const auto unanswered = std::make_shared<QHttpServerResponder>(std::move(given));
    m_unanswered.insert(unanswered);
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    const auto sockets = m_server.findChildren<QTcpSocket *>();
    const auto found = std::ranges::find(sockets, request.remotePort(), &QTcpSocket::peerPort);
    const QPointer<QTcpSocket> client(found == sockets.end() ? nullptr : *found);
#else
    const QPointer<QTcpSocket> client(unanswered->socket());
#endif
    m_handler(request, [this, client, waiting = std::weak_ptr(unanswered)](const SandboxAnswer &answer) {
        const auto responder = waiting.lock();
        if (!responder)
            return;
        m_unanswered.erase(responder);
        // The responder does not notice that the client has disconnected.
        if (client && client->state() == QAbstractSocket::ConnectedState)
            write(*responder, answer);
    });
}
