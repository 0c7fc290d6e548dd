#pragma once

#include <QProcess>
#include <QTemporaryDir>

#include <chrono>

/// A session bus and a real keyring, for the test alone. While it lives, the process's session bus is
/// this one.
class QVPrivateDesktop
{
public:
    QVPrivateDesktop();
    QVPrivateDesktop(const QVPrivateDesktop &) = delete;
    QVPrivateDesktop &operator=(const QVPrivateDesktop &) = delete;
    ~QVPrivateDesktop();

    /// Starts a bus that starts no service by itself.
    [[nodiscard]] bool startBus();
    /// Starts the keyring, unlocked by the right password or left as it lies on the disk.
    [[nodiscard]] bool startKeyring(bool unlocked = true);
    void stopKeyring();
    /// Leaves it there, without an answer to anything, until it is stopped or woken.
    void suspendKeyring() const;
    void wakeKeyring() const;
    /// For the store under test: only a store that hangs may meet its limit, however busy the machine is.
    static constexpr std::chrono::seconds generousLimit{30};

    [[nodiscard]] QString address() const { return m_address; }
    /// Where the bus has its socket, "bus".
    [[nodiscard]] QString folder() const { return m_folder.path(); }

private:
    void prepare(QProcess &process) const;

    QTemporaryDir m_folder;
    QProcess m_bus;
    QProcess m_keyring;
    QString m_address;
    QByteArray m_formerAddress;
};
