#include "BenchDesktop.h"

#include "BenchFailure.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>

#include <csignal>
#include <sys/prctl.h>

BenchDesktop::BenchDesktop(const QString &sandbox)
{
    m_addresses = start(m_sandbox, sandbox, {});
    m_busAddress =
        start(m_bus, QStringLiteral("dbus-daemon"),
              {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address"),
               QStringLiteral("--address=unix:dir=") + m_home.path()});
    // It prints the number of its display once it is ready.
    m_display = start(m_screen, QStringLiteral("Xvfb"),
                      {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                       QStringLiteral("0"), QStringLiteral("1280x1024x24")});
    startKeyring();
}

BenchDesktop::~BenchDesktop()
{
    for (QProcess *process : {&m_keyring, &m_screen, &m_bus, &m_sandbox}) {
        process->terminate();
        process->waitForFinished();
    }
}

QProcessEnvironment BenchDesktop::environment(bool withKeys) const
{
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"HOME", "XDG_RUNTIME_DIR", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
        environment.insert(QString::fromLatin1(name), m_home.path());
    environment.remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    if (withKeys)
        environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_busAddress);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    return environment;
}

void BenchDesktop::setKeyringHangs(bool hangs) const
{
    ::kill(pid_t(m_keyring.processId()), hangs ? SIGSTOP : SIGCONT);
}

void BenchDesktop::startKeyring()
{
    constexpr int tries = 400;
    constexpr int pause = 50;
    prepare(m_keyring, true);
    m_keyring.start(
        QStringLiteral("gnome-keyring-daemon"),
        {QStringLiteral("--foreground"), QStringLiteral("--components=secrets"), QStringLiteral("--unlock")});
    m_keyring.write("bench");
    m_keyring.closeWriteChannel();
    auto bus = QDBusConnection::connectToBus(m_busAddress, m_busAddress);
    for (int i = 0; i < tries; ++i) {
        if (bus.interface() &&
            bus.interface()->isServiceRegistered(QStringLiteral("org.freedesktop.secrets")))
            return QDBusConnection::disconnectFromBus(m_busAddress);
        m_keyring.waitForFinished(pause);
    }
    throw BenchFailure(QStringLiteral("gnome-keyring-daemon did not start"));
}

void BenchDesktop::prepare(QProcess &process, bool withKeys) const
{
    process.setProcessEnvironment(environment(withKeys));
    // The daemons end with the benchmark, even if that is killed.
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
}

QString BenchDesktop::start(QProcess &process, const QString &program, const QStringList &arguments) const
{
    constexpr int patience = 20 * 1000;
    prepare(process, false);
    process.start(program, arguments);
    if (!process.waitForReadyRead(patience))
        throw BenchFailure(program + QStringLiteral(" did not start: ") + process.errorString());
    return QString::fromUtf8(process.readLine()).trimmed();
}
