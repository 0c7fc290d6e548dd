#include <Quarvo/Quarvo.h>

#include <QApplication>
#include <QVBoxLayout>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QVSDKManager::setServiceAddresses(QVServiceAddresses::at(QStringLiteral("http://127.0.0.1:8300")));
    QVSDKManager::setQuarvoSDKVid(QStringLiteral("test-draw"), QStringLiteral("login"));

    QWidget window;
    QVBoxLayout layout(&window);
    QVClickManager verification;
    layout.addWidget(verification.clickButton());
    QObject::connect(&verification, &QVClickManager::passed,
                     [](const QString &token) { qInfo() << "send this to your server:" << token; });
    QObject::connect(&verification, &QVClickManager::failed, [](const QVError &error) {
        qWarning() << error << "- is quarvo-sandbox --port 8300 running?";
    });
    window.resize(480, 640);
    window.show();
    return QApplication::exec();
}
