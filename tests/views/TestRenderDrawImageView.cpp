#include "platform/QVError.h"
#include "service/QVVerifyResponseModel.h"
#include "settings/QVSDKManager.h"
#include "support/QVPointerInput.h"
#include "support/QVTestCase.h"
#include "support/QVWait.h"
#include "views/QVOverlayLabel.h"
#include "views/QVRenderDrawImageView.h"
#include "views/QVRenderDrawOverlayView.h"

using namespace std::chrono_literals;

namespace {

class PictureOwner final : public QWidget, public QVRenderDrawImageViewDelegate
{
public:
    void renderDrawImageViewErrorDidClickedAction() override { ++taps; }
    void renderDrawImageViewHiddenDelayErrorCompleted() override { ++hides; }
    void mousePressEvent(QMouseEvent *) override { ++presses; }

    int taps = 0;
    int hides = 0;
    int presses = 0;
};

QVError failure(const char *text)
{
    return QVError(QString::fromLatin1(text), 104);
}

} // namespace

class TestRenderDrawImageView : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:

    void promptSlidesInAndOut()
    {
        m_view->showPrompt();
        QCOMPARE(m_view->showView(), m_view->promptOverlayView());
        advance(100ms);
        const int half = m_view->promptOverlayView()->y();
        QVERIFY(half > 200 && half < 230);
        advance(100ms);
        QCOMPARE(m_view->promptOverlayView()->geometry(), QRect(0, 200, 400, 30));
        QCOMPARE(textOf(m_view->promptOverlayView()), q(" Draw along the curve in the picture"));
        m_view->hiddenPrompt();
        QCOMPARE(m_view->showView(), nullptr);
        advance(200ms);
        QCOMPARE(m_view->promptOverlayView()->y(), 230);
        QVERIFY(!m_view->promptOverlayView()->isVisible());
        QCOMPARE(time().pendingCount(), 0);
    }

    void promptDisplacesNeitherErrorNorSuccess()
    {
        m_view->showError(failure("no"), true);
        m_view->showPrompt();
        advance(200ms);
        QCOMPARE(m_view->showView(), m_view->errorOverlayView());
        QCOMPARE(m_view->promptOverlayView()->y(), 230);
        m_view->showSuccess({});
        m_view->showPrompt();
        advance(200ms);
        QCOMPARE(m_view->showView(), m_view->successOverlayView());
        QCOMPARE(m_view->errorOverlayView()->y(), 230);
        QCOMPARE(textOf(m_view->successOverlayView()), q(" Verified"));
    }

    void passingErrorGoesByItself()
    {
        m_view->showError(failure("wrong"), false);
        advance(999ms);
        QCOMPARE(m_view->errorOverlayView()->y(), 200);
        QCOMPARE(m_owner->hides, 0);
        advance(1ms);
        QCOMPARE(m_owner->hides, 1);
        QCOMPARE(m_view->showView(), nullptr);
        advance(200ms);
        QCOMPARE(m_view->errorOverlayView()->y(), 230);
    }

    void tappableErrorReplacesAPassingOne()
    {
        m_view->showError(failure("wrong"), false);
        advance(500ms);
        m_view->showError(failure("failed"), true);
        advance(2s);
        QCOMPARE(m_owner->hides, 0);
        QCOMPARE(m_view->errorOverlayView()->y(), 200);
        QCOMPARE(textOf(m_view->errorOverlayView()), q(" failed"));
    }

    void onlyALastingErrorTakesATap()
    {
        m_view->showError(failure("wrong"), false);
        advance(200ms);
        QVPointerInput::click(*m_owner, {30, 215});
        QCOMPARE(m_owner->taps, 0);
        QCOMPARE(m_owner->presses, 1);
        m_view->showError(failure("failed"), true);
        QVPointerInput::click(*m_owner, {30, 215});
        QVPointerInput::strokeWithFinger(*m_owner, {{30, 215}});
        QTest::keyClick(m_owner->windowHandle(), Qt::Key_Tab);
        QTest::keyClick(m_owner->windowHandle(), Qt::Key_Space);
        QCOMPARE(m_owner->taps, 3);
        QCOMPARE(m_owner->presses, 1);
        QCOMPARE(m_view->errorOverlayView()->y(), 200);
    }

private:
    void prepare() override
    {
        QVSDKManager::setPreferredLanguage(q("en"));
        m_owner = std::make_unique<PictureOwner>();
        m_owner->resize(500, 300);
        m_view = new QVRenderDrawImageView(m_owner.get());
        m_view->setGeometry(0, 0, 400, 230);
        m_view->setDelegate(m_owner.get());
        m_owner->show();
        QVERIFY(qv_becomesActive(*m_owner));
    }

    void finish() override { m_owner.reset(); }

    static QString textOf(const QVRenderDrawOverlayView *bar) { return bar->overlayLabel()->text(); }

    std::unique_ptr<PictureOwner> m_owner;
    QVRenderDrawImageView *m_view = nullptr;
};

QV_TEST(TestRenderDrawImageView)
#include "TestRenderDrawImageView.moc"
