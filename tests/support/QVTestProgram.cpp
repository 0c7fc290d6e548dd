#include "support/QVTestProgram.h"

#include "support/QVTestCase.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>

void QVTestProgram::prepare()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // No test writes to the keyring of whoever runs it.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    // A wrong call of GLib ends the test.
    qputenv("G_DEBUG", "fatal-criticals");
    QCoreApplication::setOrganizationDomain(q("tests.quarvo.example"));
    QCoreApplication::setApplicationName(q("quarvo-tests"));
}

int QVTestProgram::run()
{
    // Tests run beside each other, and some of them fill, take away or bar the folder of pictures.
    // Static, to outlast the lock that the component holds in it.
    static const QTemporaryDir caches;
    qputenv("XDG_CACHE_HOME", QFile::encodeName(caches.path()));

    QStringList arguments = QCoreApplication::arguments();
    const QString name = arguments.size() > 1 ? arguments.takeAt(1) : QString();
    const std::unique_ptr<QObject> test = QVTestRegistry::create(name);
    if (!test) {
        std::fprintf(stderr, "usage: %s %s [options of Qt Test]\n", qUtf8Printable(arguments.value(0)),
                     qUtf8Printable(QVTestRegistry::names().join(u'|')));
        return 2;
    }
    return QTest::qExec(test.get(), arguments);
}
