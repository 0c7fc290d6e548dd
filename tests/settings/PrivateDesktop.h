#pragma once

#include "support/QVText.h"
#include "support/QVWait.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusVirtualObject>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <sys/prctl.h>

/// A session bus and a real keyring for one test. Until it is destroyed, it is the session bus of the
/// process.
class PrivateDesktop
{
public:
    PrivateDesktop() = default;
    ~PrivateDesktop()
    {
        QDBusConnection::disconnectFromBus(address);
        stopKeyring();
        stop(m_bus);
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_formerAddress);
    }
    Q_DISABLE_COPY(PrivateDesktop)

    /// Starts the bus, which does not start services itself.
    [[nodiscard]] bool startBus()
    {
        QFile configuration(folder.filePath(q("bus.conf")));
        const QString text =
            q("<busconfig><type>session</type><listen>unix:path=%1/bus</listen><auth>EXTERNAL</auth>"
              "<policy context='default'><allow send_destination='*'/><allow eavesdrop='true'/>"
              "<allow own='*'/></policy></busconfig>");
        if (!configuration.open(QIODevice::WriteOnly) ||
            configuration.write(text.arg(folder.path()).toUtf8()) < 0)
            return false;
        configuration.close();
        start(m_bus, "dbus-daemon",
              {q("--nofork"), q("--print-address"), q("--config-file=") + configuration.fileName()});
        if (!m_bus.waitForReadyRead(30000))
            return false;
        address = QString::fromUtf8(m_bus.readLine()).trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address.toUtf8());
        return true;
    }

    /// Starts the keyring. It is unlocked with its password, or stays locked.
    [[nodiscard]] bool startKeyring(bool unlocked = true)
    {
        QStringList arguments{q("--foreground"), q("--components=secrets")};
        if (unlocked)
            arguments.append(q("--unlock"));
        start(m_keyring, "gnome-keyring-daemon", arguments);
        m_keyring.write("test");
        m_keyring.closeWriteChannel();
        const auto bus = QDBusConnection::connectToBus(address, address);
        return qv_waitFor(
            [&bus] { return bus.interface()->isServiceRegistered(q("org.freedesktop.secrets")); });
    }

    void stopKeyring()
    {
        if (m_keyring.state() == QProcess::NotRunning)
            return;
        wakeKeyring();
        stop(m_keyring);
    }

    /// Suspends the keyring, so that it does not answer until it is stopped or woken.
    void suspendKeyring() const { ::kill(pid_t(m_keyring.processId()), SIGSTOP); }
    void wakeKeyring() const { ::kill(pid_t(m_keyring.processId()), SIGCONT); }

    /// The folder with the socket of the bus, "bus". In memory, if possible: the keyring waits for the disk
    /// at each change, which takes seconds on a busy machine.
    const QTemporaryDir folder{(QFileInfo(q("/dev/shm")).isWritable() ? q("/dev/shm") : QDir::tempPath()) +
                               q("/quarvo-tests-XXXXXX")};
    QString address;

private:
    void start(QProcess &process, const char *program, const QStringList &arguments) const
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        for (const char *name :
             {"HOME", "XDG_RUNTIME_DIR", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
            environment.insert(QString::fromLatin1(name), folder.path());
        environment.insert(q("DBUS_SESSION_BUS_ADDRESS"), address);
        process.setProcessEnvironment(environment);
        // The daemons end with the test, even if it crashes.
        process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
        process.setStandardErrorFile(QProcess::nullDevice());
        process.start(QString::fromLatin1(program), arguments);
    }

    static void stop(QProcess &process)
    {
        process.terminate();
        if (!process.waitForFinished(5000))
            process.kill();
        process.waitForFinished(5000);
    }

    QProcess m_bus;
    QProcess m_keyring;
    const QByteArray m_formerAddress = qgetenv("DBUS_SESSION_BUS_ADDRESS");
};

/// Replaces the desktop's password dialog, and never answers.
class PrivatePrompter : public QDBusVirtualObject
{
public:
    explicit PrivatePrompter(const PrivateDesktop &desktop)
    {
        auto bus = QDBusConnection::connectToBus(desktop.address, m_name);
        isThere = bus.registerVirtualObject(q("/"), this, QDBusConnection::SubPath) &&
                  bus.registerService(q("org.gnome.keyring.SystemPrompter"));
    }
    ~PrivatePrompter() override { QDBusConnection::disconnectFromBus(m_name); }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &, const QDBusConnection &) override { return true; }

    bool isThere;

private:
    const QString m_name = q("prompter");
};
