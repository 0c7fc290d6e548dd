#include <QGuiApplication>
#include <QQmlApplicationEngine>

int main(int argc, char *argv[])
{
    // Nothing of the component is named here: QML loads its module, and no widgets with it.
    QGuiApplication application(argc, argv);
    const QString host = application.arguments().value(1, QStringLiteral("Panel"));
    QQmlApplicationEngine engine;
    engine.load(QUrl(QStringLiteral("qrc:/%1.qml").arg(host)));
    return engine.rootObjects().isEmpty() ? 1 : QGuiApplication::exec();
}
