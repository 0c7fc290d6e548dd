#include "demo/SolutionClient.h"
#include "hosts/BenchClock.h"
#include "hosts/ConfiguredHost.h"
#include "hosts/HostWindow.h"
#include "hosts/StallProbe.h"

#include <Quarvo/Quarvo.h>

#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <memory>

namespace {

constexpr int settleMilliseconds = 300;

QPointF middle(const QWidget &widget)
{
    return QRectF(widget.rect()).center();
}

void click(QWidget &widget)
{
    sendMouse(widget, QEvent::MouseButtonPress, middle(widget));
    sendMouse(widget, QEvent::MouseButtonRelease, middle(widget));
}

/// The visible widget of a class that is not public.
QWidget *findPart(const char *className)
{
    const QWidgetList all = QApplication::allWidgets();
    for (QWidget *widget : all) {
        if (widget->inherits(className) && widget->isVisible())
            return widget;
    }
    return nullptr;
}

void giveUp()
{
    QCoreApplication::exit(1);
}

template<class Manager>
void endOnFailure(const Manager &manager)
{
    QObject::connect(&manager, &Manager::failed, qApp, giveUp);
}

int runPanel(double start)
{
    HostWindow window;
    QVEmbedManager manager;
    configureHost(QStringLiteral("test-draw"));
    endOnFailure(manager);
    QObject::connect(&manager, &QVEmbedManager::ready, &window, [&] {
        window.afterPaint([start] { tellLater({{QStringLiteral("painted"), benchNow() - start}}); });
    });
    window.place(manager.embedView(), HostWindow::panelSize);
    window.show();
    return QApplication::exec();
}

/// Presses the button as long as a person does, and measures the time from the release to the passed look,
/// twice.
int runClick()
{
    constexpr int pressMilliseconds = 80;
    HostWindow window;
    QVClickManager manager;
    configureHost(QStringLiteral("test-pass"));
    endOnFailure(manager);
    QAbstractButton &button = *manager.clickButton();
    window.place(&button, HostWindow::buttonSize);
    QJsonObject result;
    double released = 0;
    const auto press = [&] {
        sendMouse(button, QEvent::MouseButtonPress, middle(button));
        QTimer::singleShot(pressMilliseconds, &window, [&] {
            released = benchNow();
            sendMouse(button, QEvent::MouseButtonRelease, middle(button));
        });
    };
    QObject::connect(
        manager.button(), &QVClickButton::clickStatusChanged, &window, [&](QVClickStatus status) {
            if (status == QVClickStatusPassed)
                result.insert(result.isEmpty() ? QStringLiteral("first") : QStringLiteral("again"),
                              benchNow() - released);
        });
    QObject::connect(&manager, &QVClickManager::passed, &window, [&] {
        if (result.size() == 2)
            return tell(result);
        manager.reset();
        QTimer::singleShot(settleMilliseconds, &window, press);
    });
    window.show();
    QTimer::singleShot(settleMilliseconds, &window, press);
    return QApplication::exec();
}

/// Measures the requests of click mode, without painting.
int runInvisible()
{
    HostWindow window;
    QVInvisibleManager manager;
    manager.setAnimation(false);
    configureHost(QStringLiteral("test-pass"));
    endOnFailure(manager);
    QJsonObject result;
    double start = 0;
    const auto begin = [&] {
        start = benchNow();
        manager.startInsivible();
    };
    QObject::connect(&manager, &QVInvisibleManager::passed, &window, [&] {
        result.insert(result.isEmpty() ? QStringLiteral("first") : QStringLiteral("again"),
                      benchNow() - start);
        if (result.size() == 2)
            return tell(result);
        QTimer::singleShot(settleMilliseconds, &window, begin);
    });
    window.show();
    QTimer::singleShot(settleMilliseconds, &window, begin);
    return QApplication::exec();
}

/// Draws the curve over the picture within a second, like a person.
class Player : public QObject
{
public:
    explicit Player(QVector<QPointF> curve)
        : m_picture(*findPart("QVRenderDrawImageView"))
        , m_curve(std::move(curve))
    {
        constexpr int duration = 1000;
        constexpr double pictureUnits = 400;
        for (QPointF &point : m_curve)
            point *= m_picture.width() / pictureUnits;
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(duration / int(m_curve.size()));
        connect(&m_timer, &QTimer::timeout, this, &Player::move);
        sendMouse(m_picture, QEvent::MouseButtonPress, m_curve.first());
        m_timer.start();
    }

private:
    void move()
    {
        sendMouse(m_picture, QEvent::MouseMove, m_curve.at(m_next));
        if (++m_next < m_curve.size())
            return;
        m_timer.stop();
        sendMouse(m_picture, QEvent::MouseButtonRelease, m_curve.last());
    }

    QWidget &m_picture;
    QVector<QPointF> m_curve;
    QTimer m_timer;
    qsizetype m_next = 1;
};

/// Solves the picture of \a manager after it has emitted \a opened, and measures how long the main thread was
/// blocked, from the first input on.
template<class Manager, class Opened>
int solve(HostWindow &window, Manager &manager, Opened opened, const std::function<void()> &begin)
{
    constexpr int unfolded = 1500;
    configureHost(QStringLiteral("test-draw"));
    endOnFailure(manager);
    SolutionClient solution({QUrl(serviceAddress())});
    std::unique_ptr<Player> player;
    QObject::connect(&manager, opened, &window, [&] {
        // Then the picture is on screen, and nothing moves.
        QTimer::singleShot(unfolded, &window, [&] {
            pauseStalls();
            solution.ask();
        });
    });
    QObject::connect(&solution, &SolutionClient::failed, &window, giveUp);
    QObject::connect(&solution, &SolutionClient::curve, &window, [&](const QVector<QPointF> &curve) {
        player = std::make_unique<Player>(curve);
        QTimer::singleShot(0, &window, watchStalls);
    });
    QObject::connect(&manager, &Manager::passed, &window, [] { tell(seenStalls()); });
    window.show();
    QTimer::singleShot(settleMilliseconds, &window, [&] {
        watchStalls();
        begin();
    });
    return QApplication::exec();
}

int runSolvePopup()
{
    HostWindow window;
    window.resize(600, 600);
    QVClickManager manager;
    QAbstractButton &button = *manager.clickButton();
    window.place(&button, HostWindow::buttonSize);
    return solve(window, manager, &QVClickManager::popupOpened, [&button] { click(button); });
}

int runSolvePanel()
{
    HostWindow window;
    QVEmbedManager manager;
    // The panel sends its requests as soon as it has a parent, so that the probe watches the arrival of the
    // picture.
    return solve(window, manager, &QVEmbedManager::ready,
                 [&] { window.place(manager.embedView(), HostWindow::panelSize); });
}

int runStroke()
{
    HostWindow window;
    QVEmbedManager manager;
    configureHost(QStringLiteral("test-draw"));
    endOnFailure(manager);
    QObject::connect(&manager, &QVEmbedManager::ready, &window, [&] {
        QTimer::singleShot(settleMilliseconds, &window,
                           [&] { tell(strokeCosts(*findPart("QVRenderDrawImageView"))); });
    });
    window.place(manager.embedView(), HostWindow::panelSize);
    window.show();
    return QApplication::exec();
}

/// The share of repaints that were late by more than half a frame, in percent.
double lateShare(const std::vector<double> &paints)
{
    constexpr double frame = 1000.0 / 60;
    int late = 0;
    for (size_t i = 1; i < paints.size(); ++i)
        late += paints[i] - paints[i - 1] > frame * 1.5 ? 1 : 0;
    return paints.size() > 1 ? 100.0 * late / double(paints.size() - 1) : 100;
}

/// Shows an animation that waits for an answer, which does not come, and counts the late frames.
int runFrames(const QString &what)
{
    constexpr int duration = 3000;
    HostWindow window;
    window.resize(600, 400);
    QVEmbedManager panel;
    QVClickManager button;
    QVInvisibleManager invisible;
    configureHost(QStringLiteral("test-slow"));
    if (what == QLatin1String("panel"))
        window.place(panel.embedView(), HostWindow::panelSize);
    else if (what == QLatin1String("button"))
        window.place(button.clickButton(), HostWindow::buttonSize);
    window.show();
    QTimer::singleShot(settleMilliseconds, &window, [&] {
        if (what == QLatin1String("button"))
            click(*button.clickButton());
        else if (what == QLatin1String("badge"))
            invisible.startInsivible();
    });
    QTimer::singleShot(2 * settleMilliseconds, &window, [&] { window.paints().clear(); });
    QTimer::singleShot(2 * settleMilliseconds + duration, &window, [&] {
        tell({{QStringLiteral("late"), lateShare(window.paints())}});
    });
    return QApplication::exec();
}

int runIdle(const QString &what)
{
    HostWindow window;
    window.resize(600, 600);
    QVEmbedManager panel;
    QVClickManager manager;
    configureHost(QStringLiteral("test-draw"));
    endOnFailure(panel);
    endOnFailure(manager);
    QObject::connect(&panel, &QVEmbedManager::ready, &window, [] { tell({}); });
    QObject::connect(&manager, &QVClickManager::popupOpened, &window, [] {
        QTimer::singleShot(2 * settleMilliseconds, qApp, [] { click(*findPart("QVCloseButton")); });
    });
    QObject::connect(&manager, &QVClickManager::closed, &window, [] { tell({}); });
    if (what == QLatin1String("panel"))
        window.place(panel.embedView(), HostWindow::panelSize);
    else
        window.place(manager.clickButton(), HostWindow::buttonSize);
    window.show();
    if (what == QLatin1String("popup"))
        QTimer::singleShot(settleMilliseconds, &window, [&] { click(*manager.clickButton()); });
    else if (what == QLatin1String("button"))
        tell({});
    return QApplication::exec();
}

int run(const QString &mode, double start)
{
    const QString what = mode.section(u'-', 1);
    if (mode == QLatin1String("panel"))
        return runPanel(start);
    if (mode == QLatin1String("click"))
        return runClick();
    if (mode == QLatin1String("invisible"))
        return runInvisible();
    if (mode == QLatin1String("stroke"))
        return runStroke();
    if (mode == QLatin1String("solve-popup"))
        return runSolvePopup();
    if (mode == QLatin1String("solve-panel"))
        return runSolvePanel();
    return mode.startsWith(QLatin1String("frames")) ? runFrames(what) : runIdle(what);
}

} // namespace

/// quarvo-bench-host MODE ADDRESSES
int main(int argc, char *argv[])
{
    const double start = benchNow();
    return runApplication(argc, argv, [start](const QString &mode) { return run(mode, start); });
}
