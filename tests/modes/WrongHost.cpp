#include <Quarvo/Quarvo.h>

#include <QApplication>
#include <QTimer>
#include <QVBoxLayout>

#include <cstdio>

namespace {

std::unique_ptr<QCoreApplication> application(const QByteArray &kind, int &count, char **arguments)
{
    if (kind == "core")
        return std::make_unique<QCoreApplication>(count, arguments);
    if (kind == "gui")
        return std::make_unique<QGuiApplication>(count, arguments);
    return std::make_unique<QApplication>(count, arguments);
}

/// Quits in the middle of requests, or with two popups open, and keeps its window for ever.
void startCarelessly(QVClickManager &click, QVEmbedManager &embed, QVInvisibleManager &invisible,
                     bool waitsForPopups)
{
    // Qt's own frame on Wayland crashes when a window that has the keyboard is left to the application's end.
    auto *const window = new QWidget(nullptr, Qt::FramelessWindowHint);
    auto *const layout = new QVBoxLayout(window);
    layout->addWidget(click.clickButton());
    layout->addWidget(embed.embedView());
    window->resize(700, 600);
    window->show();
    const auto quit = [missing = waitsForPopups ? 2 : 1]() mutable {
        if (--missing == 0)
            QCoreApplication::quit();
    };
    QObject::connect(&click, &QVClickManager::popupOpened, window, quit);
    QObject::connect(&invisible, &QVInvisibleManager::popupOpened, window, quit);
    if (!waitsForPopups)
        QTimer::singleShot(300, window, quit);
    click.clickButton()->click();
    invisible.startInsivible();
}

} // namespace

/// A host that does wrong: WrongHost late|core|gui click|embed|invisible ADDRESS has no widgets, and is ready
/// late only after the component was used. WrongHost careless requests|popups ADDRESS quits.
int main(int count, char *arguments[])
{
    const QByteArray kind = arguments[1];
    const QByteArray mode = arguments[2];
    std::unique_ptr<QCoreApplication> running;
    if (kind != "late")
        running = application(kind, count, arguments);
    const QString address = QString::fromLatin1(arguments[3]);
    QVSDKManager::setServiceAddresses(QVServiceAddresses::at(address));
    QVSDKManager::setOutageServer(address + QStringLiteral("/outage"));
    QVSDKManager::setQuarvoSDKVid(QStringLiteral("some-id"), QStringLiteral("3"));
    // They end after the application object.
    static QVClickManager click;
    static QVEmbedManager embed;
    static QVInvisibleManager invisible;
    const auto fail = [](const QVError &error) {
        std::printf("failed %lld\n", static_cast<long long>(error.code()));
        QCoreApplication::quit();
    };
    QObject::connect(&click, &QVClickManager::failed, &click, fail);
    QObject::connect(&embed, &QVEmbedManager::failed, &embed, fail);
    QObject::connect(&invisible, &QVInvisibleManager::failed, &invisible, fail);
    if ((mode == "click" && click.clickButton()) || (mode == "embed" && embed.embedView()))
        return 3;
    if (mode == "invisible")
        invisible.startInsivible();
    if (kind == "careless")
        startCarelessly(click, embed, invisible, mode == "popups");
    if (!running)
        running = application(kind, count, arguments);
    QTimer::singleShot(20000, running.get(), [] { QCoreApplication::exit(2); });
    return QCoreApplication::exec();
}
