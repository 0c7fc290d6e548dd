#pragma once

#include <QHttpServer>
#include <QHttpServerResponder>

#include <functional>
#include <memory>
#include <set>

class QTcpServer;
struct SandboxAnswer;

/// Qt's HTTP server behind one interface, since its own changed with Qt 6.8.
class SandboxHttpServer
{
public:
    /// Answers a request, at once or later. Without effect once the client or the server has gone.
    using Reply = std::function<void(const SandboxAnswer &answer)>;
    using Handler = std::function<void(const QHttpServerRequest &request, const Reply &reply)>;

    /// Every request goes to \a handler.
    explicit SandboxHttpServer(Handler handler);

    /// Serves the connections of \a tcpServer, which listens already; false where it cannot.
    [[nodiscard]] bool serve(std::unique_ptr<QTcpServer> tcpServer);

private:
    void handle(const QHttpServerRequest &request, QHttpServerResponder &&given);

    Handler m_handler;
    QHttpServer m_server;
    // Destroyed before the server, since they refer to its connections.
    std::set<std::shared_ptr<QHttpServerResponder>> m_unanswered;
};
