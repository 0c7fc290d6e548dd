#include "sandbox/SandboxReply.h"

#include "sandbox/SandboxAnswer.h"

SandboxReply::SandboxReply(QHttpServerResponder &&responder)
    : m_responder(std::make_shared<QHttpServerResponder>(std::move(responder)))
    , m_socket(m_responder->socket())
{
}

void SandboxReply::send(const SandboxAnswer &answer) const
{
    if (!m_socket || m_socket->state() != QAbstractSocket::ConnectedState)
        return;
    m_responder->write(answer.body,
                       {{QByteArrayLiteral("Content-Type"), answer.contentType},
                        {QByteArrayLiteral("Cache-Control"), QByteArrayLiteral("no-store")}},
                       static_cast<QHttpServerResponder::StatusCode>(answer.status));
}
