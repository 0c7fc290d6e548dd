#include <Quarvo/Quarvo.h>

#include <QApplication>
#include <QQmlApplicationEngine>
#include <QQmlContext>

int main(int argc, char *argv[])
{
    // A QApplication, since the badge and the popup are widgets, which are shown over the Quick window.
    QApplication application(argc, argv);
    // The local service, started by: quarvo-sandbox --port 8300
    QVSDKManager::setServiceAddresses(QVServiceAddresses::at(QStringLiteral("http://127.0.0.1:8300")));
    QVSDKManager::setQuarvoSDKVid(QStringLiteral("test-draw"), QStringLiteral("login"));

    QVInvisibleManager verification;
    QObject::connect(&verification, &QVInvisibleManager::passed,
                     [](const QString &token) { qInfo() << "send this to your server:" << token; });
    QQmlApplicationEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("verification"), &verification);
    QObject::connect(&verification, &QVInvisibleManager::failed, &engine, [&engine](const QVError &error) {
        qWarning() << error << "- is quarvo-sandbox --port 8300 running?";
        QMetaObject::invokeMethod(engine.rootObjects().constFirst(), "finish",
                                  Q_ARG(QVariant, error.domain()));
    });
    engine.load(QUrl(QStringLiteral("qrc:/Login.qml")));
    if (engine.rootObjects().isEmpty())
        return 1;
    return QApplication::exec();
}
