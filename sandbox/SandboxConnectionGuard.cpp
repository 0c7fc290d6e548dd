#include "sandbox/SandboxConnectionGuard.h"

#include <chrono>

namespace {

constexpr qint64 maximumRequest = qint64{64} * 1024;
constexpr std::chrono::seconds longestSilence(60);

} // namespace

SandboxConnectionGuard::SandboxConnectionGuard(QTcpSocket *socket)
    : QObject(socket)
    , m_socket(socket)
{
    // Small answers are written in three parts, which must not wait for each other.
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket->setReadBufferSize(maximumRequest);
    connect(socket, &QTcpSocket::readyRead, this, &SandboxConnectionGuard::countReceived);
    connect(socket, &QTcpSocket::bytesWritten, this, &SandboxConnectionGuard::forgetReceived);
    connect(&m_silence, &QTimer::timeout, this, &SandboxConnectionGuard::end);
    m_silence.setSingleShot(true);
    m_silence.start(longestSilence);
}

void SandboxConnectionGuard::countReceived()
{
    m_received += m_socket->bytesAvailable();
    m_silence.start(longestSilence);
    // Not at once: the HTTP server has not been notified of these bytes yet.
    if (m_received >= maximumRequest)
        QMetaObject::invokeMethod(this, &SandboxConnectionGuard::end, Qt::QueuedConnection);
}

void SandboxConnectionGuard::forgetReceived()
{
    m_received = 0;
    m_silence.start(longestSilence);
}

void SandboxConnectionGuard::end()
{
    // The HTTP server then deletes the socket.
    m_socket->abort();
}
