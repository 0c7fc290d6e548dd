#pragma once

#include <QProcess>
#include <QTemporaryDir>

#include <chrono>

/// A session bus and a real keyring for one test. Until it is destroyed, it is the session bus of the
/// process.
class QVPrivateDesktop
{
public:
    QVPrivateDesktop();
    QVPrivateDesktop(const QVPrivateDesktop &) = delete;
    QVPrivateDesktop &operator=(const QVPrivateDesktop &) = delete;
    ~QVPrivateDesktop();

    /// Starts the bus, which does not start services itself.
    [[nodiscard]] bool startBus();
    /// Starts the keyring. It is unlocked with its password, or stays locked.
    [[nodiscard]] bool startKeyring(bool unlocked = true);
    void stopKeyring();
    /// Suspends the keyring, so that it does not answer until it is stopped or woken.
    void suspendKeyring() const;
    void wakeKeyring() const;
    /// A limit for the store under test that only a hanging service exceeds, even on a busy machine.
    static constexpr std::chrono::seconds generousLimit{30};

    [[nodiscard]] QString address() const { return m_address; }
    /// The folder with the socket of the bus, "bus".
    [[nodiscard]] QString folder() const { return m_folder.path(); }

private:
    void prepare(QProcess &process) const;

    QTemporaryDir m_folder;
    QProcess m_bus;
    QProcess m_keyring;
    QString m_address;
    QByteArray m_formerAddress;
};
