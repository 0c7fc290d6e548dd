#include "draw/DrawTestCase.h"

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
        service().answer(q("switch"), {{q("active"), false}});
        service().extend(q("get"), {{q("adlinkword"), q("new")}});
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
        QCOMPARE(bar(), q("promptOverlayView"));
        QVERIFY(picture().accessibleDescription() != q("Loading"));
        QCOMPARE(service().count(request), isAfterPicture ? 1 : 2);
    }

    void theTokenSurvivesTheView()
    {
        start(QVVerifyStyleEmbed);
        draw();
        QVERIFY(waitFor([this] { return bar() == QLatin1String("successOverlayView"); }));
        destroyView();
        advance(1s);
        QCOMPARE(listener.tokens, QStringList{q("main-token")});
    }

    void severalStrokesBeforeTheJudgement_data()
    {
        const auto row = addColumns<int, QString, int, int>({"strokes", "code", "wrongCounts", "tokens"});
        row("two, wrong", 2, "0104", 2, 0);
        row("three, wrong", 3, "0104", 3, 0);
        row("two, right", 2, "0103", 0, 1);
    }

    void severalStrokesBeforeTheJudgement()
    {
        QFETCH(int, strokes);
        QFETCH(QString, code);
        service().extend(q("verify"), {{q("code"), code}});
        service().delay(q("verify"), 1s);
        // The last judgement comes while the second one's new picture is still on its way.
        service().delay(q("refresh"), 3s);
        start(QVVerifyStyleEmbed);
        for (int count = 1; count <= strokes; ++count) {
            draw();
            QVERIFY(waitFor([&] { return service().count(q("verify")) == count; }));
        }
        pass(2500ms);
        QTEST(wrongCount, "wrongCounts");
        QTEST(int(listener.tokens.size()), "tokens");
        QCOMPARE(service().count(q("refresh")), code == q("0104") ? 1 : 0);
    }

    void aWrongAnswerAboutAReplacedPictureIsForgotten()
    {
        service().answerCode(q("verify"), q("0104"));
        service().delay(q("verify"), 4s);
        start(QVVerifyStylePopup);
        advance(176s);
        draw();
        QVERIFY(waitFor([this] { return service().count(q("verify")) == 1; }));
        pass(3s);
        QVERIFY(waitForReady(2));
        pass(2s);
        QCOMPARE(wrongCount, 0);
        QCOMPARE(bar(), QString());
        // So the new picture has its two tries yet.
        QCOMPARE(service().count(q("refresh")), 1);
    }

    void drawingGoesOnUntilTheNewPictureIsThere_data()
    {
        const auto row = addColumns<bool>({"isBefore"});
        row("begun before it is asked for", true);
        row("begun after", false);
    }

    void drawingGoesOnUntilTheNewPictureIsThere()
    {
        QFETCH(bool, isBefore);
        service().answerCode(q("verify"), q("0104"));
        service().delay(q("refresh"), 3s);
        start(QVVerifyStyleEmbed);
        advance(178s);
        const auto points = QVPointerInput::wave(frame("imageView").center() - QPoint(80, 0), 20, 8);
        if (!isBefore)
            advance(1s);
        QVPointerInput::press(view(), points.front());
        for (const QPoint point : points) {
            QVPointerInput::move(view(), point);
            advance(40ms);
        }
        QVERIFY(waitFor([this] { return service().count(q("refresh")) == 1; }));
        QVERIFY(!picture().hasImage());
        QVPointerInput::release(view(), points.back());
        QVERIFY(waitFor([this] { return service().count(q("verify")) == 1; }));
        // The new picture ends a stroke, as before.
        QVPointerInput::press(view(), points.front());
        QVPointerInput::move(view(), points.back());
        pass(3s);
        QVERIFY(waitForReady(2));
        QVPointerInput::release(view(), points.front());
        QTest::qWait(20);
        QCOMPARE(service().count(q("verify")), 1);
    }

    void aPassedAnswerAboutAReplacedPictureCounts()
    {
        service().delay(q("verify"), 3s);
        service().delay(q("refresh"), 4s);
        start(QVVerifyStylePopup);
        advance(176s);
        draw();
        QVERIFY(waitFor([this] { return service().count(q("verify")) == 1; }));
        pass(3s);
        QCOMPARE(service().count(q("refresh")), 1);
        QVERIFY(waitFor([this] { return bar() == QLatin1String("successOverlayView"); }));
        QVERIFY(picture().accessibleDescription().isEmpty());
        pass(6s);
        QCOMPARE(listener.tokens, QStringList{q("main-token")});
        QCOMPARE(readyCount, 1);
        QCOMPARE(bar(), q("successOverlayView"));
    }

private:
    static void states()
    {
        const auto row = addColumns<QString, bool, bool>({"request", "isAfterPicture", "isOutage"});
        row("checking outage", "switch", false, false);
        row("configuring", "config", false, false);
        row("fetching a picture", "get", false, false);
        row("loading a picture", "picture", false, false);
        row("refreshing", "refresh", true, false);
        row("verifying", "verify", true, false);
        row("fetching an outage picture", "outage get", true, true);
        row("loading an outage picture", "outage picture", true, true);
    }

    /// Brings an embedded view to where it waits for the row's request, which answers a second later.
    void reachState()
    {
        QFETCH(QString, request);
        QFETCH(bool, isAfterPicture);
        QFETCH(bool, isOutage);
        service().answer(q("switch"), {{q("active"), isOutage}});
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
