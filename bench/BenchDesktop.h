#pragma once

#include <QProcess>
#include <QTemporaryDir>

/// What the programs run in: a home of their own, the sandbox, and a session bus with a key chain.
class BenchDesktop
{
public:
    /// \a sandbox is the program. Throws BenchFailure where something cannot be started.
    explicit BenchDesktop(const QString &sandbox);
    BenchDesktop(const BenchDesktop &) = delete;
    BenchDesktop &operator=(const BenchDesktop &) = delete;
    ~BenchDesktop();

    [[nodiscard]] QString addresses() const { return m_addresses; }
    [[nodiscard]] QProcessEnvironment environment(bool withKeys) const;
    [[nodiscard]] qint64 keyring() const { return m_keyring.processId(); }

private:
    void startKeyring();
    void prepare(QProcess &process, bool withKeys) const;
    /// Starts a program and waits for the line in which it says where it is.
    [[nodiscard]] QString start(QProcess &process, const QString &program,
                                const QStringList &arguments) const;

    QTemporaryDir m_home;
    QProcess m_sandbox;
    QProcess m_bus;
    QProcess m_keyring;
    QString m_addresses;
    QString m_busAddress;
};
