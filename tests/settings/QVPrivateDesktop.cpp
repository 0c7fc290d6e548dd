#include "settings/QVPrivateDesktop.h"

#include "support/QVText.h"

#include <QDBusConnectionInterface>
#include <QDir>
#include <QTest>

#include <csignal>
#include <sys/prctl.h>

namespace {

constexpr const char *addressVariable = "DBUS_SESSION_BUS_ADDRESS";

QByteArray busConfiguration(const QString &folder)
{
    return q("<busconfig><type>session</type><listen>unix:path=%1/bus</listen><auth>EXTERNAL</auth>"
             "<policy context=\"default\"><allow send_destination=\"*\"/><allow "
             "eavesdrop=\"true\"/><allow own=\"*\"/></policy>"
             "</busconfig>")
        .arg(folder)
        .toUtf8();
}

// In memory, if possible: the keyring waits for the disk at each change, which takes seconds on a busy
// machine.
QString folderTemplate()
{
    const QString memory = q("/dev/shm");
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + q("/quarvo-tests-XXXXXX");
}

void stop(QProcess &process)
{
    process.terminate();
    if (!process.waitForFinished(5000))
        process.kill();
    process.waitForFinished(5000);
}

} // namespace

QVPrivateDesktop::QVPrivateDesktop()
    : m_folder(folderTemplate())
    , m_formerAddress(qgetenv(addressVariable))
{
}

QVPrivateDesktop::~QVPrivateDesktop()
{
    QDBusConnection::disconnectFromBus(m_address);
    stopKeyring();
    stop(m_bus);
    qputenv(addressVariable, m_formerAddress);
}

bool QVPrivateDesktop::startBus()
{
    QFile configuration(m_folder.filePath(q("bus.conf")));
    if (!configuration.open(QIODevice::WriteOnly))
        return false;
    configuration.write(busConfiguration(m_folder.path()));
    configuration.close();
    prepare(m_bus);
    m_bus.start(q("dbus-daemon"),
                {q("--nofork"), q("--print-address"), q("--config-file=") + configuration.fileName()});
    if (!m_bus.waitForReadyRead(30000))
        return false;
    m_address = QString::fromUtf8(m_bus.readLine()).trimmed();
    qputenv(addressVariable, m_address.toUtf8());
    return true;
}

bool QVPrivateDesktop::startKeyring(bool unlocked)
{
    prepare(m_keyring);
    QStringList arguments{q("--foreground"), q("--components=secrets")};
    if (unlocked)
        arguments.append(q("--unlock"));
    m_keyring.start(q("gnome-keyring-daemon"), arguments);
    m_keyring.write("test");
    m_keyring.closeWriteChannel();
    const auto bus = QDBusConnection::connectToBus(m_address, m_address);
    return QTest::qWaitFor(
        [&bus] { return bus.interface()->isServiceRegistered(q("org.freedesktop.secrets")); }, 30000);
}

void QVPrivateDesktop::stopKeyring()
{
    if (m_keyring.state() == QProcess::NotRunning)
        return;
    wakeKeyring();
    stop(m_keyring);
}

void QVPrivateDesktop::suspendKeyring() const
{
    ::kill(pid_t(m_keyring.processId()), SIGSTOP);
}

void QVPrivateDesktop::wakeKeyring() const
{
    ::kill(pid_t(m_keyring.processId()), SIGCONT);
}

void QVPrivateDesktop::prepare(QProcess &process) const
{
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"HOME", "XDG_RUNTIME_DIR", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
        environment.insert(QString::fromLatin1(name), m_folder.path());
    environment.insert(QString::fromLatin1(addressVariable), m_address);
    process.setProcessEnvironment(environment);
    // The daemons end with the test, even if it crashes.
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    process.setStandardErrorFile(QProcess::nullDevice());
}
