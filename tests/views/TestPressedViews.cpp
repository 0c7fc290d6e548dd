#include "support/QVPixels.h"
#include "support/QVPointerInput.h"
#include "support/QVTestCase.h"
#include "support/QVWait.h"
#include "views/QVInvisibleAnimationView.h"
#include "views/QVRenderDrawImageView.h"
#include "views/QVRenderDrawOverlayView.h"
#include "views/QVTouchButton.h"

#include <QElapsedTimer>
#include <QSemaphore>
#include <QSignalSpy>
#include <QThreadPool>

using namespace std::chrono_literals;

namespace {

class Button : public QVTouchButton
{
public:
    using QVTouchButton::QVTouchButton;

protected:
    void paintEvent(QPaintEvent *) override {}
};

class Owner final : public QWidget, public QVRenderDrawImageViewDelegate
{
public:
    void renderDrawImageViewErrorDidClickedAction() override { ++taps; }
    void mousePressEvent(QMouseEvent *) override { ++presses; }

    int taps = 0;
    int presses = 0;
};

using Bar = QVOverlaySurface::Bar;

} // namespace

/// The effects of presses on views, and the duration of their animations.
class TestPressedViews : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aTouchIsAClick_data()
    {
        const auto row = addColumns<QString, int>({"steps", "clicks"});
        row("two taps", "press lift press lift", 2);
        row("left and back", "press out in lift", 1);
        row("left", "press out lift-out", 0);
        row("hidden", "press hide show in lift", 0);
        row("hidden, then a tap", "press hide show lift press lift", 1);
        row("disabled", "press disable in lift", 0);
        row("disabled for a while", "press disable enable in lift", 1);
    }

    void aTouchIsAClick()
    {
        QFETCH(QString, steps);
        Button button(m_owner.get());
        button.setGeometry(20, 20, 100, 40);
        button.show();
        const QSignalSpy clicked(&button, &QAbstractButton::clicked);
        for (const QString &step : steps.split(u' ')) {
            auto touch = QTest::touchEvent(m_owner.get(), QVPointerInput::touchScreen());
            const QPoint place = step.endsWith(q("out")) ? QPoint(450, 280) : QPoint(50, 30);
            if (step == q("press"))
                touch.press(0, place, m_owner.get());
            else if (step == q("in") || step == q("out"))
                touch.move(0, place, m_owner.get());
            else if (step.startsWith(q("lift")))
                touch.release(0, place, m_owner.get());
            else if (step == q("hide") || step == q("show"))
                button.setVisible(step == q("show"));
            else
                button.setEnabled(step == q("enable"));
        }
        QTEST(int(clicked.size()), "clicks");
        QVERIFY(!button.isDown());
    }

    void onlyABarThatAcceptsThemTakesTaps()
    {
        m_view->slideIn(Bar::Error, q("wrong"), false);
        advance(100ms);
        const QVRenderDrawOverlayView *bar = m_view->errorOverlayView();
        QVERIFY(bar->y() > 200 && bar->y() < 230);
        advance(100ms);
        QCOMPARE(bar->geometry(), QRect(0, 200, 400, 30));
        QVPointerInput::click(*m_owner, {30, 215});
        QCOMPARE(m_owner->taps, 0);
        QCOMPARE(m_owner->presses, 1);
        m_view->slideIn(Bar::Error, q("failed"), true);
        QVPointerInput::click(*m_owner, {30, 215});
        QVPointerInput::strokeWithFinger(*m_owner, {{30, 215}});
        QTest::keyClick(m_owner->windowHandle(), Qt::Key_Tab);
        QTest::keyClick(m_owner->windowHandle(), Qt::Key_Space);
        QCOMPARE(m_owner->taps, 3);
        QCOMPARE(m_owner->presses, 1);
        m_view->slideOut(Bar::Error);
        advance(200ms);
        QCOMPARE(bar->y(), 230);
        QVERIFY(!bar->isVisible());
        QCOMPARE(time().pendingCount(), 0);
    }

    void paintsWhileTheHostsThreadsAreBusy()
    {
        constexpr int patience = 5000;
        QThreadPool &pool = *QThreadPool::globalInstance();
        QSemaphore busy;
        for (int i = 0; i < pool.maxThreadCount(); ++i)
            pool.start([&busy] { busy.tryAcquire(1, patience); });
        m_view->setImage(QImage(1600, 920, QImage::Format_RGB32));
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!pixelsOf(*m_view, 3).isNull());
        QVERIFY(timer.elapsed() < patience - 1000);
        busy.release(pool.maxThreadCount());
        pool.waitForDone();
    }

    void aBadgeIsDoneAfterASecondWhateverHappens()
    {
        for (const bool isDestroyed : {false, true}) {
            auto badge = std::make_unique<QVInvisibleAnimationView>(m_owner.get());
            badge->startLoadingAnimation();
            int completions = 0;
            badge->passAnimationComplete([&] { ++completions; });
            advance(400ms);
            if (isDestroyed)
                badge.reset();
            else
                badge->clearLayers();
            advance(599ms);
            QCOMPARE(completions, 0);
            advance(1ms);
            QCOMPARE(completions, 1);
            advance(1s);
            QCOMPARE(time().pendingCount(), 0);
        }
    }

private:
    void prepare() override
    {
        m_owner = std::make_unique<Owner>();
        m_owner->resize(500, 300);
        m_view = new QVRenderDrawImageView(m_owner.get());
        m_view->setGeometry(0, 0, 400, 230);
        m_view->setDelegate(m_owner.get());
        m_owner->show();
        QVERIFY(qv_becomesActive(*m_owner));
    }

    void finish() override { m_owner.reset(); }

    std::unique_ptr<Owner> m_owner;
    QVRenderDrawImageView *m_view = nullptr;
};

QV_TEST(TestPressedViews)
#include "TestPressedViews.moc"
