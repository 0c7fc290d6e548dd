#pragma once

#include <QProcess>
#include <QTemporaryDir>

/// What the hosts run in: a home of their own, the sandbox, an X server, and a session bus with a key chain.
class BenchDesktop
{
public:
    /// \a sandbox is the program. Throws BenchFailure where something cannot be started.
    explicit BenchDesktop(const QString &sandbox);
    BenchDesktop(const BenchDesktop &) = delete;
    BenchDesktop &operator=(const BenchDesktop &) = delete;
    ~BenchDesktop();

    [[nodiscard]] QString addresses() const { return m_addresses; }
    /// Of a host that finds no session bus, and so no key chain.
    [[nodiscard]] QProcessEnvironment plain() const { return environment(false); }
    [[nodiscard]] QProcessEnvironment withKeys() const { return environment(true); }
    [[nodiscard]] QString display() const { return u':' + m_display; }
    /// Lets the key chain hang, or go on.
    void setKeyringHangs(bool hangs) const;

private:
    [[nodiscard]] QProcessEnvironment environment(bool withKeys) const;
    void startKeyring();
    void prepare(QProcess &process, bool withKeys) const;
    /// Starts a program and waits for the line in which it says where it is.
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
