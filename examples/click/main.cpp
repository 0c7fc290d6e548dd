#include <Quarvo/Quarvo.h>

#include <QApplication>
#include <QVBoxLayout>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QVSDKManager::setQuarvoSDKVid(QStringLiteral("your-id"), QStringLiteral("login"));

    QWidget window;
    QVBoxLayout layout(&window);
    QVClickManager verification;
    layout.addWidget(verification.clickButton());

    QObject::connect(&verification, &QVClickManager::passed,
                     [](const QString &token) { qInfo() << "send this to your server:" << token; });
    window.resize(480, 640);
    window.show();
    return QApplication::exec();
}
