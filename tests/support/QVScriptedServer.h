#pragma once

#include "support/QVScript.h"

#include <QPointer>
#include <QSslConfiguration>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

#include <functional>
#include <optional>

/// A request as it came over the wire.
struct QVReceivedRequest
{
    /// From the request line, untouched.
    QByteArray method;
    QByteArray target;
    /// Everything up to the empty line.
    QByteArray head;

    /// The lines of the head after the first, without their ends.
    [[nodiscard]] QByteArrayList fields() const;
    [[nodiscard]] QByteArray header(const QByteArray &name) const;
    [[nodiscard]] QByteArray path() const { return target.split('?').constFirst(); }
    /// The query's pairs as they came, sorted.
    [[nodiscard]] QByteArrayList pairs() const;
};

/// A server on a port of this machine that does to each request exactly what its script says,
/// however wrong that is. It reads requests without a body.
class QVScriptedServer : public QTcpServer
{
    Q_OBJECT

public:
    using Responder = std::function<QVScript(const QVReceivedRequest &)>;

    QVScriptedServer();
    ~QVScriptedServer() override;

    /// From now on speaks TLS.
    void useTls(const QSslConfiguration &configuration) { m_tls = configuration; }
    /// Scheme, host and port, without a slash at the end.
    [[nodiscard]] QString address() const;

    /// Requests take the scripts put here in order, then whatever the responder says.
    void enqueue(const QVScript &script) { m_scripts.append(script); }
    void setResponder(Responder responder) { m_responder = std::move(responder); }

    [[nodiscard]] const QList<QVReceivedRequest> &requests() const { return m_requests; }
    /// How many requests wait for their time to be answered.
    [[nodiscard]] qsizetype heldCount() const;
    [[nodiscard]] int connectionCount() const { return m_connectionCount; }
    /// How many connections have been ended by the other side or by a script.
    [[nodiscard]] int closedCount() const { return m_closedCount; }

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    void read(QTcpSocket *socket);
    void run(const QPointer<QTcpSocket> &socket, QList<QVScript::Step> steps);
    [[nodiscard]] QVScript scriptFor(const QVReceivedRequest &request);

    std::optional<QSslConfiguration> m_tls;
    QList<QVScript> m_scripts;
    Responder m_responder;
    QList<QVReceivedRequest> m_requests;
    QList<QPointer<QTcpSocket>> m_held;
    int m_connectionCount = 0;
    int m_closedCount = 0;
};
