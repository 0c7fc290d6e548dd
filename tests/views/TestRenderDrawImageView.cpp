#include "platform/QVError.h"
#include "service/QVVerifyResponseModel.h"
#include "settings/QVSDKManager.h"
#include "support/QVPixels.h"
#include "support/QVTestCase.h"
#include "views/QVOverlayLabel.h"
#include "views/QVRenderDrawImageView.h"
#include "views/QVRenderDrawImageViewLoadingLayer.h"
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
    void barsWaitBelowTheEdge()
    {
        for (const QVRenderDrawOverlayView *bar : bars())
            QCOMPARE(bar->geometry(), QRect(0, 230, 400, 30));
        m_view->resize(320, 184);
        QCOMPARE(m_view->errorOverlayView()->geometry(), QRect(0, 184, 320, 30));
    }

    void promptSlidesInAndOut()
    {
        m_view->showPrompt();
        QCOMPARE(m_view->showView(), m_view->promptOverlayView());
        advance(100ms);
        const int half = m_view->promptOverlayView()->y();
        QVERIFY(half > 200 && half < 230);
        advance(100ms);
        QCOMPARE(m_view->promptOverlayView()->geometry(), QRect(0, 200, 400, 30));
        QCOMPARE(textOf(m_view->promptOverlayView()), QStringLiteral(" Draw along the curve in the picture"));
        m_view->hiddenPrompt();
        QCOMPARE(m_view->showView(), nullptr);
        advance(200ms);
        QCOMPARE(m_view->promptOverlayView()->y(), 230);
        QVERIFY(!m_view->promptOverlayView()->isVisible());
        QCOMPARE(time().pendingCount(), 0);
    }

    void characterPromptHasItsOwnText()
    {
        m_view->setIsCharVerify(true);
        m_view->showPrompt();
        QCOMPARE(textOf(m_view->promptOverlayView()), QStringLiteral(" Type the characters in the picture"));
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
        QCOMPARE(textOf(m_view->successOverlayView()), QStringLiteral(" Verified"));
    }

    void hidingAnyBarForgetsTheShownOne()
    {
        m_view->showError(failure("no"), true);
        m_view->hiddenPrompt();
        QCOMPARE(m_view->showView(), nullptr);
        m_view->showPrompt();
        advance(200ms);
        QCOMPARE(m_view->errorOverlayView()->y(), 200);
        QCOMPARE(m_view->promptOverlayView()->y(), 200);
        m_view->hiddernAll();
        advance(200ms);
        for (const QVRenderDrawOverlayView *bar : bars())
            QCOMPARE(bar->y(), 230);
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
        QCOMPARE(textOf(m_view->errorOverlayView()), QStringLiteral(" failed"));
    }

    void everyPassingErrorHasItsOwnTimer()
    {
        m_view->showError(failure("wrong"), false);
        advance(500ms);
        m_view->showError(failure("again"), false);
        advance(500ms);
        QCOMPARE(m_owner->hides, 1);
        advance(500ms);
        QCOMPARE(m_owner->hides, 2);
    }

    void errorBarTakesATap_data()
    {
        QTest::addColumn<QString>("by");
        for (const char *by : {"mouse", "touch", "enter", "space"})
            QTest::newRow(by) << QString::fromLatin1(by);
    }

    void errorBarTakesATap()
    {
        QFETCH(QString, by);
        m_view->showError(failure("failed"), true);
        advance(200ms);
        QCOMPARE(m_view->errorOverlayView()->focusPolicy(), Qt::TabFocus);
        tap(by);
        QCOMPARE(m_owner->taps, 1);
        QCOMPARE(m_owner->presses, 0);
        QCOMPARE(m_view->errorOverlayView()->y(), 200);
    }

    void onlyTheKeyboardShowsTheFocus()
    {
        m_view->showError(failure("failed"), true);
        advance(200ms);
        const QImage plain = pixelsOf(*m_view);
        m_view->errorOverlayView()->setFocus(Qt::ActiveWindowFocusReason);
        QCOMPARE(pixelsOf(*m_view), plain);
        m_view->errorOverlayView()->clearFocus();
        QTest::keyClick(m_owner->windowHandle(), Qt::Key_Tab);
        QVERIFY(m_view->errorOverlayView()->hasFocus());
        QVERIFY(pixelsOf(*m_view) != plain);
    }

    void passingErrorLetsAStrokeThrough()
    {
        m_view->showError(failure("wrong"), false);
        advance(200ms);
        QCOMPARE(m_view->errorOverlayView()->focusPolicy(), Qt::NoFocus);
        tap(QStringLiteral("mouse"));
        QCOMPARE(m_owner->taps, 0);
        QCOMPARE(m_owner->presses, 1);
    }

    void leavingErrorTakesNoMoreTaps()
    {
        m_view->showError(failure("failed"), true);
        advance(200ms);
        m_view->errorOverlayView()->setFocus();
        m_view->hiddenError();
        QVERIFY(!m_view->errorOverlayView()->hasFocus());
        tap(QStringLiteral("mouse"));
        QCOMPARE(m_owner->taps, 0);
    }

    void lastsWithoutItsDelegate()
    {
        m_view->showError(failure("failed"), true);
        advance(200ms);
        m_view->setDelegate(nullptr);
        tap(QStringLiteral("mouse"));
        m_view->showError(failure("wrong"), false);
        advance(1s);
        QCOMPARE(m_view->showView(), nullptr);
    }

    void mayEndWhileAnErrorWaits()
    {
        m_view->showError(failure("wrong"), false);
        advance(300ms);
        delete m_view;
        advance(2s);
        QCOMPARE(m_owner->hides, 0);
    }

    void dotsNeverPileUp()
    {
        m_view->showLoadingAnimation();
        m_view->showLoadingAnimation();
        const auto &dots = m_view->loadingLayer().sublayers();
        QCOMPARE(dots.size(), 3U);
        QCOMPARE(dots[0]->frame(), QRectF(180, 110, 10, 10));
        QCOMPARE(dots[1]->frame(), QRectF(195, 110, 10, 10));
        QCOMPARE(dots[2]->frame(), QRectF(210, 110, 10, 10));
        m_view->resize(200, 100);
        QCOMPARE(dots[1]->frame(), QRectF(95, 45, 10, 10));
        m_view->hiddenLoadingAnimation();
        QVERIFY(m_view->loadingLayer().sublayers().empty());
        QCOMPARE(time().pendingCount(), 0);
    }

    void dotsPulseOneAfterAnother_data()
    {
        QTest::addColumn<int>("milliseconds");
        QTest::addColumn<QList<int>>("widths");
        QTest::newRow("at the start") << 0 << QList<int>{10, 10, 10};
        // The smallest size is reached 0.3 of 0.75 s into a dot's own pulse.
        QTest::newRow("first is smallest") << 345 << QList<int>{3, 7, 10};
        QTest::newRow("last is smallest") << 585 << QList<int>{6, 5, 3};
    }

    void dotsPulseOneAfterAnother()
    {
        QFETCH(int, milliseconds);
        QFETCH(QList<int>, widths);
        m_view->showLoadingAnimation();
        const auto start = time().now();
        for (int i = 0; i < 3; ++i) {
            const auto &dot = m_view->loadingLayer().sublayers()[std::size_t(i)];
            const double scale = dot->presentedAt(start + std::chrono::milliseconds(milliseconds)).scaleX;
            QVERIFY2(qAbs(scale * 10 - widths[i]) < 1, qPrintable(QString::number(scale)));
        }
    }

    void looks()
    {
        QCOMPARE(pixelsOf(*m_view).pixelColor(5, 5), QColor(38, 38, 52));
        QImage picture(40, 23, QImage::Format_RGB32);
        picture.fill(QColor(10, 200, 30));
        m_view->setImage(picture);
        QVERIFY(m_view->hasImage());
        m_view->showLoadingAnimation();
        m_view->showError(failure("x"), true);
        advance(200ms);
        const QImage shot = pixelsOf(*m_view);
        QCOMPARE(shot.pixelColor(5, 5), QColor(10, 200, 30));
        QCOMPARE(shot.pixelColor(200, 115), QColor(65, 141, 251));
        QCOMPARE(shot.pixelColor(5, 199), QColor(10, 200, 30));
        // 0.8 of the bar's colour over the picture's.
        const QColor bar = shot.pixelColor(5, 225);
        QVERIFY(qAbs(bar.red() - 192) <= 1 && qAbs(bar.green() - 88) <= 1 && qAbs(bar.blue() - 57) <= 1);
        m_view->setImage({});
        QVERIFY(!m_view->hasImage());
        QCOMPARE(pixelsOf(*m_view).pixelColor(5, 5), QColor(38, 38, 52));
    }

    void pictureIsCrisp()
    {
        // A picture made for twice the pixels comes out pixel by pixel.
        QImage picture(800, 460, QImage::Format_RGB32);
        picture.fill(Qt::black);
        for (int x = 0; x < picture.width(); x += 2)
            picture.setPixelColor(x, 100, Qt::white);
        m_view->setImage(picture);
        const QImage twice = pixelsOf(*m_view, 2);
        QCOMPARE(twice.pixelColor(400, 100), QColor(Qt::white));
        QCOMPARE(twice.pixelColor(401, 100), QColor(Qt::black));
        // On fewer pixels the lines melt instead of dropping out.
        const int melted = pixelsOf(*m_view).pixelColor(200, 50).red();
        QVERIFY2(melted > 30 && melted < 220, qPrintable(QString::number(melted)));
    }

    void hasNames()
    {
        QCOMPARE(m_view->accessibleName(), QStringLiteral("Picture to draw on"));
        m_view->showError(failure("Something <b>bold</b>"), true);
        QCOMPARE(m_view->errorOverlayView()->accessibleName(), QStringLiteral("Something <b>bold</b>"));
        QCOMPARE(m_view->errorOverlayView()->objectName(), QStringLiteral("errorOverlayView"));
    }

private:
    void prepare() override
    {
        QVSDKManager::setPreferredLanguage(QStringLiteral("en"));
        m_owner = std::make_unique<PictureOwner>();
        m_owner->resize(500, 300);
        m_view = new QVRenderDrawImageView(m_owner.get());
        m_view->setGeometry(0, 0, 400, 230);
        m_view->setDelegate(m_owner.get());
        m_owner->show();
        QVERIFY(QTest::qWaitForWindowActive(m_owner.get()));
    }

    void finish() override { m_owner.reset(); }

    [[nodiscard]] QList<QVRenderDrawOverlayView *> bars() const
    {
        return {m_view->promptOverlayView(), m_view->errorOverlayView(), m_view->successOverlayView()};
    }

    static QString textOf(const QVRenderDrawOverlayView *bar) { return bar->overlayLabel()->text(); }

    // As the platform would deliver it: to the window, which finds the widget.
    void tap(const QString &by)
    {
        const QPoint place(30, 215);
        QWindow *window = m_owner->windowHandle();
        if (by == QLatin1String("mouse")) {
            QTest::mouseClick(window, Qt::LeftButton, {}, place);
        } else if (by == QLatin1String("touch")) {
            QTest::touchEvent(window, m_screen.get()).press(1, place);
            QTest::touchEvent(window, m_screen.get()).release(1, place);
        } else {
            QTest::keyClick(window, Qt::Key_Tab);
            QTest::keyClick(window, by == QLatin1String("enter") ? Qt::Key_Return : Qt::Key_Space);
        }
    }

    std::unique_ptr<PictureOwner> m_owner;
    QVRenderDrawImageView *m_view = nullptr;
    const std::unique_ptr<QPointingDevice> m_screen{QTest::createTouchDevice()};
};

QV_TEST(TestRenderDrawImageView)
#include "TestRenderDrawImageView.moc"
