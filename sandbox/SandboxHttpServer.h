#pragma once

#include <QHttpServer>
#include <QHttpServerResponder>

#include <functional>
#include <memory>
#include <set>

class QTcpServer;
struct SandboxAnswer;

/// Qt's HTTP server behind an interface of our own, since Qt's changed in 6.8.
class SandboxHttpServer
{
public:
    /// Answers a request, at once or later. Has no effect after the client has disconnected or the server was
    /// destroyed.
    using Reply = std::function<void(const SandboxAnswer &answer)>;
    using Handler = std::function<void(const QHttpServerRequest &request, const Reply &reply)>;

    /// Every request is passed to \a handler.
    explicit SandboxHttpServer(Handler handler);

    /// Serves the connections of \a tcpServer, which must be listening. Returns false if that fails.
    [[nodiscard]] bool serve(std::unique_ptr<QTcpServer> tcpServer);

private:
    void handle(const QHttpServerRequest &request, QHttpServerResponder &&given);

    Handler m_handler;
    QHttpServer m_server;
    // Below the server, so that they are destroyed first: they refer to its connections.
    std::set<std::shared_ptr<QHttpServerResponder>> m_unanswered;
};
