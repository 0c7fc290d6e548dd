#include "draw/DrawTestCase.h"
#include "settings/QVSDKManager.h"

using namespace std::chrono_literals;

/// Outage mode: pictures and judgements come from the host's own service.
class TestDrawOutage : public DrawTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void entersByTheSwitchOrByForce_data()
    {
        const auto row = addColumns<int, bool>({"style", "isForced"});
        row("embedded, by force", 0, true);
        row("popup, by the switch", 1, false);
    }

    void entersByTheSwitchOrByForce()
    {
        QFETCH(int, style);
        QFETCH(bool, isForced);
        QVSDKManager::setOutageOpen(isForced);
        service().answer(q("switch"), {{q("active"), !isForced}});
        start(QVVerifyStyle(style));
        QVERIFY(isShown("outageLabel"));
        QCOMPARE(service().asked(), QStringList({q("switch"), q("outage get")}));
        QVERIFY(isShown("outageLabel"));
        QVERIFY(isShown("helpButton") && isShown("refreshButton") && part("refreshButton")->isEnabled());
        QCOMPARE(isShown("captchaLabel"), style != QVVerifyStyleEmbed);
        QCOMPARE(bar(), style == QVVerifyStyleEmbed ? q("promptOverlayView") : QString());
    }

    void passesByGridCells()
    {
        startOutage();
        drawCorners();
        QVERIFY(waitFor([this] { return bar() == QLatin1String("successOverlayView"); }));
        const auto query = service().query(q("outage verify"));
        QCOMPARE(query.value(q("v")), q("0c3f"));
        QCOMPARE(query.value(q("challenge")), q("outage-challenge"));
        QCOMPARE(service().count(q("verify")), 0);
        QCOMPARE(barText(), q("Verified"));
        advance(1s);
        QCOMPARE(listener.tokens, QStringList{q("outage-token")});
    }

    void givesTwoTriesOnAPicture()
    {
        service().answerCode(q("outage verify"), q("0104"));
        startOutage();
        draw();
        QVERIFY(waitForWrongAnswer());
        QCOMPARE(service().count(q("outage get")), 1);
        draw();
        QVERIFY(waitForReady(2));
        click("refreshButton");
        QVERIFY(!isShown("refreshButton"));
        QVERIFY(waitForReady(3));
        QVERIFY(isShown("refreshButton"));
        QCOMPARE(service().count(q("outage get")), 3);
        QCOMPARE(service().count(q("refresh")), 0);
    }

    void keepsStrokesInsideThePicture()
    {
        startOutage();
        const QRect area = frame("imageView");
        QVERIFY(area.top() > 20);
        // From outside: starts nothing.
        QVPointerInput::Points points = QVPointerInput::wave(area.topLeft() + QPoint(30, 60), 20, 8);
        for (const int y : {area.top() - 8, area.bottom() + 1}) {
            points.front().setY(y);
            QVPointerInput::strokeWithMouse(view(), points);
        }
        // Out of it and back: comes to nothing.
        points = QVPointerInput::wave(area.topLeft() + QPoint(30, 60), 20, 8);
        points[15].setY(area.bottom() + 1);
        QVPointerInput::strokeWithMouse(view(), points);
        QCOMPARE(bar(), q("promptOverlayView"));
        QTest::qWait(20);
        QCOMPARE(service().count(q("outage verify")), 0);
        draw();
        QVERIFY(waitFor([this] { return service().count(q("outage verify")) == 1; }));
    }

    void followsACharacterCaptcha()
    {
        service().extend(q("config"), {{q("type"), q("character")}});
        start(QVVerifyStyleEmbed);
        QVERIFY(isShown("charInputView"));
        QVERIFY(!isShown("outageLabel"));
        service().answer(q("switch"), {{q("active"), true}});
        view().reset();
        QVERIFY(waitForReady(2));
        QVERIFY(!isShown("charInputView"));
        advance(300ms);
        draw();
        QVERIFY(waitFor([this] { return service().count(q("outage verify")) == 1; }));
    }

private:
    void startOutage()
    {
        service().answer(q("switch"), {{q("active"), true}});
        start(QVVerifyStyleEmbed);
    }

    /// A stroke from the picture's top left corner down, up to the top right and down again.
    void drawCorners()
    {
        const QRect area = frame("imageView").adjusted(20, 20, -20, -20);
        QVPointerInput::Points points;
        const QPoint corners[] = {area.topLeft(), area.bottomLeft(), area.topRight(), area.bottomRight()};
        for (int leg = 0; leg < 3; ++leg) {
            for (int i = 0; i <= 6; ++i)
                points.push_back(corners[leg] + (corners[leg + 1] - corners[leg]) * i / 6);
        }
        QVPointerInput::strokeWithFinger(view(), points, [this] { advance(20ms); });
    }
};

QV_TEST(TestDrawOutage)
#include "TestDrawOutage.moc"
