#pragma once

#include <QHttpServerResponder>
#include <QPointer>
#include <QTcpSocket>

#include <memory>

struct SandboxAnswer;

/// The way back to whoever asked, which may be gone by the time the answer is ready: the responder
/// itself does not notice.
class SandboxReply
{
public:
    explicit SandboxReply(QHttpServerResponder &&responder);

    void send(const SandboxAnswer &answer) const;

private:
    std::shared_ptr<QHttpServerResponder> m_responder;
    QPointer<QTcpSocket> m_socket;
};
