#include "settings/QVSilentSecretService.h"

#include "support/QVText.h"

#include <QDBusConnection>

QVSilentSecretService::QVSilentSecretService(const QString &address)
    : m_name(q("silent service on ") + address)
{
    moveToThread(&m_thread);
    m_thread.start();
    runThere([&] { registerOn(address); });
}

QVSilentSecretService::~QVSilentSecretService()
{
    runThere([this] { QDBusConnection::disconnectFromBus(m_name); });
    m_thread.quit();
    m_thread.wait();
}

void QVSilentSecretService::answerLate()
{
    runThere([this] {
        QDBusConnection connection(m_name);
        for (const QDBusMessage &message : std::as_const(m_unanswered))
            connection.send(message.createReply());
        m_unanswered.clear();
    });
}

QString QVSilentSecretService::introspect(const QString &) const
{
    return {};
}

bool QVSilentSecretService::handleMessage(const QDBusMessage &message, const QDBusConnection &)
{
    m_unanswered.append(message);
    return true;
}

void QVSilentSecretService::registerOn(const QString &address)
{
    auto connection = QDBusConnection::connectToBus(address, m_name);
    m_isRegistered = connection.registerVirtualObject(q("/"), this, QDBusConnection::SubPath) &&
                     connection.registerService(q("org.freedesktop.secrets"));
}

void QVSilentSecretService::runThere(const std::function<void()> &action)
{
    QMetaObject::invokeMethod(this, action, Qt::BlockingQueuedConnection);
}
