#pragma once

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QThread>

#include <atomic>
#include <functional>

/// A Secret Service that misbehaves, in a thread of its own.
class QVFakeSecretService final : public QDBusVirtualObject
{
    Q_OBJECT

public:
    enum class Manner {
        /// Keeps what it is asked and does not answer.
        Silent,
        /// Knows no item, and wants to ask the user before it makes one.
        Prompting
    };

    QVFakeSecretService(const QString &address, Manner manner);
    ~QVFakeSecretService() override;

    [[nodiscard]] bool isRegistered() const { return m_isRegistered; }
    [[nodiscard]] int messageCount() const { return m_messageCount; }
    [[nodiscard]] int promptCount() const { return m_promptCount; }
    /// Answers what was left without an answer.
    void answerLate();

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    [[nodiscard]] QDBusMessage answer(const QDBusMessage &message);
    void registerOn(const QString &address);
    /// Runs \a action in the service's thread and waits for it.
    void runThere(const std::function<void()> &action);

    const QString m_name;
    const Manner m_manner;
    QThread m_thread;
    QList<QDBusMessage> m_unanswered;
    std::atomic<bool> m_isRegistered = false;
    std::atomic<int> m_messageCount = 0;
    std::atomic<int> m_promptCount = 0;
};
