#pragma once

#include <QProcess>
#include <QTemporaryDir>

/// The environment of the hosts: a temporary home folder, the sandbox, an X server, and a session bus with a
/// key chain.
class BenchDesktop
{
public:
    /// \a sandbox is the path of the sandbox program. Throws BenchFailure if something cannot be started.
    explicit BenchDesktop(const QString &sandbox);
    BenchDesktop(const BenchDesktop &) = delete;
    BenchDesktop &operator=(const BenchDesktop &) = delete;
    ~BenchDesktop();

    [[nodiscard]] QString addresses() const { return m_addresses; }
    /// The environment of a host without a session bus, and so without a key chain.
    [[nodiscard]] QProcessEnvironment plain() const { return environment(false); }
    [[nodiscard]] QProcessEnvironment withKeys() const { return environment(true); }
    [[nodiscard]] QString display() const { return u':' + m_display; }
    /// Stops the key chain's process, or lets it go on.
    void setKeyringHangs(bool hangs) const;

private:
    [[nodiscard]] QProcessEnvironment environment(bool withKeys) const;
    void startKeyring();
    void prepare(QProcess &process, bool withKeys) const;
    /// Starts a program and waits for the line in which it prints its address.
    [[nodiscard]] QString start(QProcess &process, const QString &program,
                                const QStringList &arguments) const;

    QTemporaryDir m_home;
    QProcess m_sandbox;
    QProcess m_bus;
    QProcess m_screen;
    QProcess m_keyring;
    QString m_addresses;
    QString m_display;
    QString m_busAddress;
};
