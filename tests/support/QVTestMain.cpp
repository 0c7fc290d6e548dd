#include "support/QVTestCase.h"

#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>

/// Runs the test class named by the first argument; Qt Test takes the rest.
int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // No test writes to the keyring of whoever runs it.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    QApplication application(argc, argv);
    QApplication::setOrganizationDomain(q("tests.quarvo.example"));
    QApplication::setApplicationName(q("quarvo-tests"));
    // The component's text follows the size of the platform's font, which is not the same on all of them.
    QFont font = QApplication::font();
    font.setPointSize(9);
    QApplication::setFont(font);
    // Tests run beside each other, and some of them fill, take away or bar the folder of pictures.
    // Static, to outlast the lock that the component holds in it.
    static const QTemporaryDir caches;
    qputenv("XDG_CACHE_HOME", QFile::encodeName(caches.path()));

    QStringList arguments = QApplication::arguments();
    const QString name = arguments.size() > 1 ? arguments.takeAt(1) : QString();
    const std::unique_ptr<QObject> test = QVTestRegistry::create(name);
    if (!test) {
        std::fprintf(stderr, "usage: %s %s [options of Qt Test]\n", argv[0],
                     qUtf8Printable(QVTestRegistry::names().join(u'|')));
        return 2;
    }
    return QTest::qExec(test.get(), arguments);
}
