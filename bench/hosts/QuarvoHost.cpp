#include "BenchClock.h"
#include "hosts/HostWindow.h"

#include <Quarvo/Quarvo.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTimer>

namespace {

constexpr int attempts = 2;
constexpr int pauseBetween = 300;

void configure(const QString &vid)
{
    const QJsonObject given = hostAddresses();
    QVServiceAddresses addresses;
    addresses.setApiHost(given.value(QStringLiteral("apiHost")).toString());
    addresses.setDownloadHost(given.value(QStringLiteral("downloadHost")).toString());
    addresses.setImageHost(given.value(QStringLiteral("imageHost")).toString());
    addresses.setCdn(given.value(QStringLiteral("cdn")).toString());
    QVSDKManager::setServiceAddresses(addresses);
    QVSDKManager::setQuarvoSDKVid(vid, QStringLiteral("bench"));
}

int runPanel(double start)
{
    HostWindow window;
    QVEmbedManager manager;
    configure(QStringLiteral("test-draw"));
    QJsonObject result;
    QObject::connect(&manager, &QVEmbedManager::ready, &window, [&] {
        window.afterPaint([&] {
            result.insert(QStringLiteral("painted"), benchNow() - start);
            result.insert(QStringLiteral("processor"), benchCpuNow());
            finishHostLater(result);
        });
    });
    QObject::connect(&manager, &QVEmbedManager::failed, &window, [] { QCoreApplication::exit(1); });
    window.place(manager.embedView(), HostWindow::panelSize);
    window.show();
    return QApplication::exec();
}

void sendMouse(QWidget &widget, QEvent::Type type)
{
    const QPointF middle = QRectF(widget.rect()).center();
    QMouseEvent event(type, middle, widget.mapToGlobal(middle), Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

int runClick()
{
    HostWindow window;
    QVClickManager manager;
    configure(QStringLiteral("test-pass"));
    window.place(manager.clickButton(), HostWindow::buttonSize);
    QJsonObject result;
    double tap = 0;
    int count = 0;
    const auto press = [&] {
        sendMouse(*manager.clickButton(), QEvent::MouseButtonPress);
        tap = benchNow();
        sendMouse(*manager.clickButton(), QEvent::MouseButtonRelease);
    };
    QObject::connect(
        manager.button(), &QVClickButton::clickStatusChanged, &window, [&](QVClickStatus status) {
            if (status == QVClickStatusPassed)
                result.insert(count == 0 ? QStringLiteral("firstShown") : QStringLiteral("againShown"),
                              benchNow() - tap);
        });
    QObject::connect(&manager, &QVClickManager::passed, &window, [&] {
        result.insert(count == 0 ? QStringLiteral("first") : QStringLiteral("again"), benchNow() - tap);
        if (++count == attempts)
            return finishHost(result);
        manager.reset();
        QTimer::singleShot(pauseBetween, &window, press);
    });
    QObject::connect(&manager, &QVClickManager::failed, &window, [] { QCoreApplication::exit(1); });
    window.show();
    QTimer::singleShot(pauseBetween, &window, press);
    return QApplication::exec();
}

/// What click mode asks, with nothing to paint.
int runInvisible()
{
    HostWindow window;
    QVInvisibleManager manager;
    manager.setAnimation(false);
    configure(QStringLiteral("test-pass"));
    QJsonObject result;
    double start = 0;
    int count = 0;
    const auto begin = [&] {
        start = benchNow();
        manager.startInsivible();
    };
    QObject::connect(&manager, &QVInvisibleManager::passed, &window, [&] {
        result.insert(count == 0 ? QStringLiteral("first") : QStringLiteral("again"), benchNow() - start);
        if (++count == attempts)
            return finishHost(result);
        QTimer::singleShot(pauseBetween, &window, begin);
    });
    QObject::connect(&manager, &QVInvisibleManager::failed, &window, [] { QCoreApplication::exit(1); });
    window.show();
    QTimer::singleShot(pauseBetween, &window, begin);
    return QApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    const double start = benchNow();
    QApplication application(argc, argv);
    const QString mode = QApplication::arguments().value(1);
    if (mode == QLatin1String("invisible"))
        return runInvisible();
    return mode == QLatin1String("click") ? runClick() : runPanel(start);
}
