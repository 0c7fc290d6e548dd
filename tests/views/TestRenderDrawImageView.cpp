#include "support/QVPixels.h"
#include "support/QVPointerInput.h"
#include "support/QVTestCase.h"
#include "support/QVWait.h"
#include "views/QVLabel.h"
#include "views/QVRenderDrawImageView.h"
#include "views/QVRenderDrawOverlayView.h"

#include <QElapsedTimer>
#include <QSemaphore>
#include <QThreadPool>

using namespace std::chrono_literals;

namespace {

class PictureOwner final : public QWidget, public QVRenderDrawImageViewDelegate
{
public:
    void renderDrawImageViewErrorDidClickedAction() override { ++taps; }
    void mousePressEvent(QMouseEvent *) override { ++presses; }

    int taps = 0;
    int presses = 0;
};

using Bar = QVOverlaySurface::Bar;

} // namespace

class TestRenderDrawImageView : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aBarSlidesInAndOut()
    {
        const QVRenderDrawOverlayView *bar = m_view->promptOverlayView();
        m_view->slideIn(Bar::Prompt, q("Draw"), false);
        advance(100ms);
        QVERIFY(bar->y() > 200 && bar->y() < 230);
        advance(100ms);
        QCOMPARE(bar->geometry(), QRect(0, 200, 400, 30));
        QCOMPARE(bar->overlayLabel()->text(), q("Draw"));
        m_view->slideOut(Bar::Prompt);
        advance(200ms);
        QCOMPARE(bar->y(), 230);
        QVERIFY(!bar->isVisible());
        QCOMPARE(time().pendingCount(), 0);
    }

    void onlyABarThatAcceptsThemTakesTaps()
    {
        m_view->slideIn(Bar::Error, q("wrong"), false);
        advance(200ms);
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
        QCOMPARE(m_view->errorOverlayView()->y(), 200);
    }

    void paintsWhileTheHostsThreadsAreBusy()
    {
        constexpr int patience = 5000;
        QThreadPool &pool = *QThreadPool::globalInstance();
        QSemaphore busy;
        for (int i = 0; i < pool.maxThreadCount(); ++i)
            pool.start([&busy] { busy.tryAcquire(1, patience); });
        m_view->setImage(QImage(1600, 920, QImage::Format_RGB32));
        QElapsedTimer time;
        time.start();
        QVERIFY(!pixelsOf(*m_view, 3).isNull());
        QVERIFY(time.elapsed() < patience - 1000);
        busy.release(pool.maxThreadCount());
        pool.waitForDone();
    }

private:
    void prepare() override
    {
        m_owner = std::make_unique<PictureOwner>();
        m_owner->resize(500, 300);
        m_view = new QVRenderDrawImageView(m_owner.get());
        m_view->setGeometry(0, 0, 400, 230);
        m_view->setDelegate(m_owner.get());
        m_owner->show();
        QVERIFY(qv_becomesActive(*m_owner));
    }

    void finish() override { m_owner.reset(); }

    std::unique_ptr<PictureOwner> m_owner;
    QVRenderDrawImageView *m_view = nullptr;
};

QV_TEST(TestRenderDrawImageView)
#include "TestRenderDrawImageView.moc"
