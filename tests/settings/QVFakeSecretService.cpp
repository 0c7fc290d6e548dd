#include "settings/QVFakeSecretService.h"

#include "support/QVText.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusVariant>

QVFakeSecretService::QVFakeSecretService(const QString &address, Manner manner)
    : m_name(q("fake service on ") + address)
    , m_manner(manner)
{
    moveToThread(&m_thread);
    m_thread.start();
    runThere([&] { registerOn(address); });
}

QVFakeSecretService::~QVFakeSecretService()
{
    runThere([this] { QDBusConnection::disconnectFromBus(m_name); });
    m_thread.quit();
    m_thread.wait();
}

void QVFakeSecretService::answerLate()
{
    runThere([this] {
        QDBusConnection connection(m_name);
        for (const QDBusMessage &message : std::as_const(m_unanswered))
            connection.send(message.createReply());
        m_unanswered.clear();
    });
}

QString QVFakeSecretService::introspect(const QString &) const
{
    return {};
}

bool QVFakeSecretService::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    ++m_messageCount;
    if (m_manner == Manner::Silent)
        m_unanswered.append(message);
    else
        connection.send(answer(message));
    return true;
}

QDBusMessage QVFakeSecretService::answer(const QDBusMessage &message)
{
    const QString member = message.member();
    if (member == QLatin1String("SearchItems")) {
        const auto none = QVariant::fromValue(QList<QDBusObjectPath>());
        return message.createReply({none, none});
    }
    if (member == QLatin1String("OpenSession")) {
        if (message.arguments().value(0).toString() != QLatin1String("plain"))
            return message.createErrorReply(QDBusError::NotSupported, q("plain only"));
        return message.createReply({QVariant::fromValue(QDBusVariant(QString())),
                                    QVariant::fromValue(QDBusObjectPath(q("/session")))});
    }
    if (member == QLatin1String("CreateItem"))
        return message.createReply({QVariant::fromValue(QDBusObjectPath(q("/"))),
                                    QVariant::fromValue(QDBusObjectPath(q("/prompt")))});
    if (member == QLatin1String("Unlock"))
        return message.createReply({QVariant::fromValue(QList<QDBusObjectPath>()),
                                    QVariant::fromValue(QDBusObjectPath(q("/prompt")))});
    if (member == QLatin1String("Prompt"))
        ++m_promptCount;
    return message.createReply();
}

void QVFakeSecretService::registerOn(const QString &address)
{
    auto connection = QDBusConnection::connectToBus(address, m_name);
    m_isRegistered = connection.registerVirtualObject(q("/"), this, QDBusConnection::SubPath) &&
                     connection.registerService(q("org.freedesktop.secrets"));
}

void QVFakeSecretService::runThere(const std::function<void()> &action)
{
    QMetaObject::invokeMethod(this, action, Qt::BlockingQueuedConnection);
}
