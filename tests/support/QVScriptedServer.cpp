#include "support/QVScriptedServer.h"

#include "platform/QVScheduler.h"
#include "support/QVText.h"

#include <QSslSocket>

#include <algorithm>

QByteArrayList QVReceivedRequest::fields() const
{
    QByteArrayList result;
    for (const QByteArray &line : head.trimmed().split('\n').sliced(1))
        result.append(line.trimmed());
    return result;
}

QByteArray QVReceivedRequest::header(const QByteArray &name) const
{
    for (const QByteArray &field : fields()) {
        const qsizetype colon = field.indexOf(':');
        if (colon > 0 && field.left(colon).compare(name, Qt::CaseInsensitive) == 0)
            return field.mid(colon + 1).trimmed();
    }
    return {};
}

QByteArrayList QVReceivedRequest::pairs() const
{
    const qsizetype mark = target.indexOf('?');
    if (mark < 0)
        return {};
    QByteArrayList result = target.mid(mark + 1).split('&');
    std::ranges::sort(result);
    return result;
}

QVScriptedServer::QVScriptedServer()
{
    if (!listen(QHostAddress::LocalHost))
        qFatal("cannot listen on this machine");
}

QVScriptedServer::~QVScriptedServer()
{
    // Their end is no news to a server that is going itself.
    for (QTcpSocket *socket : findChildren<QTcpSocket *>())
        socket->disconnect(this);
}

QString QVScriptedServer::address() const
{
    const QString scheme = m_tls ? q("https") : q("http");
    return q("%1://127.0.0.1:%2").arg(scheme).arg(serverPort());
}

void QVScriptedServer::incomingConnection(qintptr descriptor)
{
    ++m_connectionCount;
    auto *const secure = m_tls ? new QSslSocket(this) : nullptr;
    auto *const socket = secure ? secure : new QTcpSocket(this);
    socket->setSocketDescriptor(descriptor);
    connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket); });
    connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
        ++m_closedCount;
        socket->deleteLater();
    });
    if (!secure)
        return;
    secure->setSslConfiguration(*m_tls);
    secure->startServerEncryption();
}

void QVScriptedServer::read(QTcpSocket *socket)
{
    const QByteArray end = QByteArrayLiteral("\r\n\r\n");
    while (true) {
        const QByteArray waiting = socket->peek(socket->bytesAvailable());
        const qsizetype length = waiting.indexOf(end);
        if (length < 0)
            return;
        QVReceivedRequest request;
        request.head = socket->read(length + end.size());
        const QByteArrayList words = request.head.left(request.head.indexOf('\r')).split(' ');
        request.method = words.value(0);
        request.target = words.value(1);
        m_requests.append(request);
        run(socket, scriptFor(request).steps());
    }
}

void QVScriptedServer::run(const QPointer<QTcpSocket> &socket, QList<QVScript::Step> steps)
{
    m_held.removeAll(socket);
    while (socket && !steps.isEmpty()) {
        const QVScript::Step step = steps.takeFirst();
        if (step.kind == QVScript::Step::Kind::Wait) {
            m_held.append(socket);
            QVScheduler::shared().schedule(step.duration, [self = QPointer(this), socket, steps] {
                if (self)
                    self->run(socket, steps);
            });
            return;
        }
        if (step.kind == QVScript::Step::Kind::Send)
            socket->write(step.bytes);
        else
            socket->disconnectFromHost();
    }
}

qsizetype QVScriptedServer::heldCount() const
{
    return std::ranges::count_if(m_held, [](const auto &socket) {
        return socket && socket->state() == QAbstractSocket::ConnectedState;
    });
}

QVScript QVScriptedServer::scriptFor(const QVReceivedRequest &request)
{
    if (!m_scripts.isEmpty())
        return m_scripts.takeFirst();
    return m_responder ? m_responder(request) : QVScript();
}
