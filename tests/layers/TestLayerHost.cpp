#include "layers/QVLayerHost.h"
#include "layers/QVTicker.h"
#include "settings/QVSDKManager.h"
#include "support/QVTestCase.h"

#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QProxyStyle>

using namespace std::chrono_literals;
using Property = QVLayerProperty;

namespace {

class Canvas : public QWidget
{
public:
    explicit Canvas(QWidget *parent = nullptr)
        : QWidget(parent)
    {
        resize(200, 100);
        dot->setFrame({20, 20, 10, 10});
        dot->setBackgroundColor(Qt::red);
        host.root().addSublayer(dot);
    }

    void move(double seconds)
    {
        QVAnimation animation = QVAnimation::basic(Property::Frame, std::nullopt, QRectF(120, 20, 10, 10));
        animation.setDuration(seconds);
        dot->addAnimation(animation);
    }

    void turnForever()
    {
        QVAnimation animation = QVAnimation::basic(Property::Rotation, 0.0, 6.0);
        animation.setDuration(1);
        animation.setRepeatsForever();
        dot->addAnimation(animation);
    }

    void paintEvent(QPaintEvent *event) override
    {
        painted.push_back(event->region().boundingRect());
        QPainter painter(this);
        host.paint(painter);
    }

    QVLayerHost host{*this};
    std::shared_ptr<QVLayer> dot = std::make_shared<QVLayer>();
    std::vector<QRect> painted;
};

/// Of a user who wants no motion.
struct StillStyle : QProxyStyle
{
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *result) const override
    {
        return hint == SH_Widget_Animation_Duration ? 0
                                                    : QProxyStyle::styleHint(hint, option, widget, result);
    }
};

struct Client : QVTickerClient
{
    ~Client() override { stop(); }
    void stop() { QVTicker::shared().stop(this); }
    void tick(Time) override
    {
        ++ticks;
        if (action)
            std::exchange(action, {})();
    }

    int ticks = 0;
    std::function<void()> action;
};

} // namespace

class TestLayerHost : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void repaintsOnlyWhatChangedAsOftenAsTheScreen()
    {
        QVTicker::shared().setRefreshRate(60);
        Canvas canvas;
        show(canvas);
        canvas.painted.clear();
        canvas.move(1);
        advance(100ms);
        QCOMPARE(canvas.painted.size(), 6U);
        for (const QRect &rect : canvas.painted) {
            // A step of 1.7 pixels, plus one pixel on either side for antialiasing, rounded outwards.
            QVERIFY(rect.width() <= 15);
            QVERIFY(rect.height() <= 12);
        }
        // The last repaint covers the dot's place before and after the step.
        QVERIFY(canvas.painted.back().contains(QRect(29, 20, 10, 10)));
    }

    void idleWhenNothingMoves()
    {
        Canvas canvas;
        show(canvas);
        QCOMPARE(time().pendingCount(), 0);
        canvas.move(0.1);
        QCOMPARE(time().pendingCount(), 1);
        advance(120ms);
        QCOMPARE(time().pendingCount(), 0);
        QCOMPARE(canvas.dot->presented().frame, QRectF(20, 20, 10, 10));
        canvas.turnForever();
        advance(5s);
        QCOMPARE(time().pendingCount(), 1);
        canvas.dot->removeFromSuperlayer();
        QCOMPARE(time().pendingCount(), 0);
        canvas.host.root().addSublayer(canvas.dot);
        QCOMPARE(time().pendingCount(), 1);
        canvas.dot->removeAllAnimations();
        QCOMPARE(time().pendingCount(), 0);
    }

    void hiddenHostRestsAndComesBackInTime()
    {
        QWidget window;
        Canvas canvas(&window);
        show(window);
        canvas.turnForever();
        advance(1100ms);
        window.showMinimized();
        // On Wayland a program is not notified when its window is minimised.
        if (QGuiApplication::platformName() == q("wayland"))
            window.hide();
        advance(0ms);
        QCOMPARE(time().pendingCount(), 0);
        canvas.painted.clear();
        advance(3500ms);
        QVERIFY(canvas.painted.empty());
        window.showNormal();
        QCOMPARE(time().pendingCount(), 1);
        QVERIFY(std::abs(canvas.dot->presented().rotation - 3.6) < 0.01);
    }

    void reducedMotionKeepsEndlessLayersStillAndEndsTheOthers()
    {
        for (const bool isHostsWish : {false, true}) {
            QApplication::setStyle(isHostsWish ? new QProxyStyle : new StillStyle);
            QVSDKManager::setReducedMotion(isHostsWish);
            Canvas canvas;
            show(canvas);
            canvas.turnForever();
            QCOMPARE(time().pendingCount(), 0);
            canvas.move(1);
            QCOMPARE(canvas.dot->presented().frame, QRectF(20, 20, 10, 10));
            advance(17ms);
            QCOMPARE(time().pendingCount(), 0);
            QCOMPARE(canvas.dot->presented().rotation, 0.0);
        }
    }

    void whatIsTickedMayChangeDuringATick()
    {
        Client leader;
        Client stopped;
        Client late;
        auto doomed = std::make_unique<Client>();
        for (Client *client : {&leader, doomed.get(), &stopped})
            QVTicker::shared().start(client);
        leader.action = [&] {
            doomed.reset();
            stopped.stop();
            QVTicker::shared().start(&late);
        };
        advance(17ms);
        QCOMPARE(QList<int>({leader.ticks, stopped.ticks, late.ticks}), QList<int>({1, 0, 0}));
        advance(17ms);
        QCOMPARE(QList<int>({leader.ticks, stopped.ticks, late.ticks}), QList<int>({2, 0, 1}));
    }

private:
    void finish() override
    {
        QApplication::setStyle(new QProxyStyle);
        QVSDKManager::setReducedMotion(false);
        QVTicker::shared().setRefreshRate(0);
    }

    void show(QWidget &widget)
    {
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        advance(0ms);
    }
};

QV_TEST(TestLayerHost)
#include "TestLayerHost.moc"
