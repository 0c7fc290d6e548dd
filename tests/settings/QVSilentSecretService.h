#pragma once

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QThread>

#include <atomic>
#include <functional>

/// A Secret Service that keeps what it is asked and does not answer, in a thread of its own.
class QVSilentSecretService final : public QDBusVirtualObject
{
    Q_OBJECT

public:
    explicit QVSilentSecretService(const QString &address);
    ~QVSilentSecretService() override;

    [[nodiscard]] bool isRegistered() const { return m_isRegistered; }
    /// Answers what was left without an answer.
    void answerLate();

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    void registerOn(const QString &address);
    /// Runs \a action in the service's thread and waits for it.
    void runThere(const std::function<void()> &action);

    const QString m_name;
    QThread m_thread;
    QList<QDBusMessage> m_unanswered;
    std::atomic<bool> m_isRegistered = false;
};
