#include "draw/DrawTestCase.h"
#include "draw/QVRenderDrawView.h"
#include "views/QVRenderDrawImageView.h"

using namespace std::chrono_literals;

/// Requests that overtake each other, and views that go while something is on its way.
class TestDrawOverlap : public DrawTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aViewMayGoInEachWaitingState_data() { states(); }

    void aViewMayGoInEachWaitingState()
    {
        reachState();
        destroyView();
        pass(1500ms);
        QCOMPARE(listener.tokens, QStringList());
        advance(200s);
        QCOMPARE(time().pendingCount(), 0);
    }

    void aResetWinsOverEachWaitingState_data() { states(); }

    void aResetWinsOverEachWaitingState()
    {
        QFETCH(QString, request);
        QFETCH(bool, isAfterPicture);
        reachState();
        service().delay(request, 0ms);
        service().answer(QStringLiteral("switch"), {{QStringLiteral("active"), false}});
        service().extend(QStringLiteral("get"), {{QStringLiteral("adlinkword"), QStringLiteral("new")}});
        const int before = readyCount;
        view().reset();
        QVERIFY(waitForReady(before + 1));
        const QImage shown = picture().image();
        const auto asked = service().asked();
        // Now the answer of the attempt before comes in.
        pass(1500ms);
        QCOMPARE(readyCount, before + 1);
        QCOMPARE(wrongCount, 0);
        QCOMPARE(failures.size(), 0);
        QCOMPARE(picture().image(), shown);
        QCOMPARE(service().asked(), asked);
        QCOMPARE(listener.tokens, QStringList());
        QCOMPARE(bar(), QStringLiteral("promptOverlayView"));
        QVERIFY(picture().accessibleDescription().isEmpty());
        QCOMPARE(service().count(request), isAfterPicture ? 1 : 2);
    }

    void theTokenSurvivesTheView()
    {
        start(QVVerifyStyleEmbed);
        draw();
        QVERIFY(waitFor([this] { return bar() == QLatin1String("successOverlayView"); }));
        destroyView();
        advance(1s);
        QCOMPARE(listener.tokens, QStringList{QStringLiteral("main-token")});
    }

    void theTokenNeedsALivingDelegate()
    {
        auto other = std::make_unique<Listener>();
        start(QVVerifyStyleEmbed);
        view().setDelegate(other.get());
        draw();
        QVERIFY(waitFor([this] { return bar() == QLatin1String("successOverlayView"); }));
        other.reset();
        advance(1s);
        QCOMPARE(listener.tokens, QStringList());
    }

    void aViewMayBeDestroyedByWhoeverIsTold_data()
    {
        QTest::addColumn<QString>("failing");
        QTest::newRow("ready") << "";
        QTest::newRow("failed") << "config";
        QTest::newRow("wrong") << "verify";
    }

    void aViewMayBeDestroyedByWhoeverIsTold()
    {
        QFETCH(QString, failing);
        const bool isWrong = failing == QLatin1String("verify");
        if (!failing.isEmpty())
            service().answerCode(failing, QStringLiteral("0104"));
        show(QVVerifyStylePopup);
        bool told = false;
        const auto destroy = [&] {
            told = true;
            destroyView();
        };
        if (isWrong)
            connect(&view(), &QVRenderDrawView::wrongAnswer, this, destroy);
        else if (failing.isEmpty())
            connect(&view(), &QVRenderDrawView::ready, this, destroy);
        else
            connect(&view(), &QVRenderDrawView::failed, this, destroy);
        view().requestQuarvoConfigAction();
        if (isWrong) {
            QVERIFY(waitForReady());
            draw();
        }
        QVERIFY(waitFor([&] { return told; }));
        pass(1500ms);
    }

    void twoStrokesBeforeTheJudgementCountTwice()
    {
        service().answerCode(QStringLiteral("verify"), QStringLiteral("0104"));
        service().delay(QStringLiteral("verify"), 1s);
        start(QVVerifyStyleEmbed);
        draw();
        draw();
        QVERIFY(waitFor([this] { return service().count(QStringLiteral("verify")) == 2; }));
        pass(1500ms);
        QVERIFY(waitForReady(2));
        QCOMPARE(wrongCount, 2);
        QCOMPARE(service().count(QStringLiteral("refresh")), 1);
    }

    void thereIsOneTokenForTwoPassedStrokes()
    {
        service().delay(QStringLiteral("verify"), 1s);
        start(QVVerifyStyleEmbed);
        draw();
        draw();
        QVERIFY(waitFor([this] { return service().count(QStringLiteral("verify")) == 2; }));
        pass(4s);
        QCOMPARE(listener.tokens, QStringList{QStringLiteral("main-token")});
    }

    void aWrongAnswerAboutAReplacedPictureIsForgotten()
    {
        service().answerCode(QStringLiteral("verify"), QStringLiteral("0104"));
        service().delay(QStringLiteral("verify"), 3s);
        start(QVVerifyStylePopup);
        advance(176s);
        draw();
        QVERIFY(waitFor([this] { return service().count(QStringLiteral("verify")) == 1; }));
        pass(3s);
        QVERIFY(waitForReady(2));
        pass(2s);
        QCOMPARE(wrongCount, 0);
        QCOMPARE(bar(), QString());
        draw();
        pass(4s);
        // So the new picture has had one try, not two.
        QCOMPARE(wrongCount, 1);
        QCOMPARE(service().count(QStringLiteral("refresh")), 1);
    }

    void aPassedAnswerAboutAReplacedPictureCounts()
    {
        service().delay(QStringLiteral("verify"), 3s);
        service().delay(QStringLiteral("refresh"), 4s);
        start(QVVerifyStylePopup);
        advance(176s);
        draw();
        QVERIFY(waitFor([this] { return service().count(QStringLiteral("verify")) == 1; }));
        pass(3s);
        QCOMPARE(service().count(QStringLiteral("refresh")), 1);
        QVERIFY(waitFor([this] { return bar() == QLatin1String("successOverlayView"); }));
        QVERIFY(picture().accessibleDescription().isEmpty());
        pass(6s);
        QCOMPARE(listener.tokens, QStringList{QStringLiteral("main-token")});
        QCOMPARE(readyCount, 1);
        QCOMPARE(bar(), QStringLiteral("successOverlayView"));
    }

private:
    static void states()
    {
        QTest::addColumn<QString>("request");
        QTest::addColumn<bool>("isAfterPicture");
        QTest::addColumn<bool>("isOutage");
        QTest::newRow("checking outage") << "switch" << false << false;
        QTest::newRow("configuring") << "config" << false << false;
        QTest::newRow("fetching a picture") << "get" << false << false;
        QTest::newRow("loading a picture") << "picture" << false << false;
        QTest::newRow("refreshing") << "refresh" << true << false;
        QTest::newRow("verifying") << "verify" << true << false;
        QTest::newRow("fetching an outage picture") << "outage get" << true << true;
        QTest::newRow("loading an outage picture") << "outage picture" << true << true;
    }

    /// Brings an embedded view to where it waits for the row's request, which answers a second later.
    void reachState()
    {
        QFETCH(QString, request);
        QFETCH(bool, isAfterPicture);
        QFETCH(bool, isOutage);
        service().answer(QStringLiteral("switch"), {{QStringLiteral("active"), isOutage}});
        service().delay(request, 1s);
        show(QVVerifyStyleEmbed);
        advance(100ms);
        if (isAfterPicture && !isOutage) {
            QVERIFY(waitForReady());
            if (request == QLatin1String("refresh"))
                click("refreshButton");
            else
                draw();
        }
        QVERIFY(waitFor([&] { return service().count(request) == 1; }));
    }
};

QV_TEST(TestDrawOverlap)
#include "TestDrawOverlap.moc"
