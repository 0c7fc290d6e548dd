#include <Quarvo/Quarvo.h>

#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <functional>

namespace {

template<class Manager>
void watch(Manager &manager)
{
    QObject::connect(&manager, &Manager::failed, &manager, [](const QVError &error) {
        std::printf("failed %lld\n", static_cast<long long>(error.code()));
        QCoreApplication::quit();
    });
}

std::unique_ptr<QCoreApplication> application(const QByteArray &kind, int &count, char **arguments)
{
    if (kind == "core")
        return std::make_unique<QCoreApplication>(count, arguments);
    if (kind == "gui")
        return std::make_unique<QGuiApplication>(count, arguments);
    return std::make_unique<QApplication>(count, arguments);
}

} // namespace

/// A host without widgets: WrongHost late|core|gui click|embed|invisible ADDRESS. Late, it is ready only
/// after the component was used.
int main(int count, char *arguments[])
{
    const QByteArray kind = arguments[1];
    const QByteArray mode = arguments[2];
    std::unique_ptr<QCoreApplication> running;
    if (kind != "late")
        running = application(kind, count, arguments);
    QVSDKManager::setServiceAddresses(QVServiceAddresses::at(QString::fromLatin1(arguments[3])));
    QVSDKManager::setQuarvoSDKVid(QStringLiteral("some-id"), QStringLiteral("3"));
    QVClickManager click;
    QVEmbedManager embed;
    QVInvisibleManager invisible;
    if (mode == "click" && click.clickButton())
        return 3;
    if (mode == "embed" && embed.embedView())
        return 3;
    watch(click);
    watch(embed);
    watch(invisible);
    if (mode == "invisible")
        invisible.startInsivible();
    if (!running)
        running = application(kind, count, arguments);
    QTimer::singleShot(20000, running.get(), [] { QCoreApplication::exit(2); });
    return QCoreApplication::exec();
}
