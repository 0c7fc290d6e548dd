#include "quick/QuickTestCase.h"
#include "settings/QVSDKManager.h"

#include <QAccessible>

using namespace std::chrono_literals;

/// The panel: what it shows, and what the user does with it by mouse, finger and keys.
class TestQuickPanel : public QuickTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aStrokeGivesAToken_data()
    {
        const auto row = addColumns<QString, int>({"pointer", "least"});
        row("mouse", q("mouse"), 30);
        // Qt Quick by itself delivers a touch's moves once a frame.
        row("finger", q("finger"), 30);
        row("mouse without a button", q("clicks"), 30);
        row("from a control", q("control"), 10);
        row("keys", q("keys"), 15);
    }

    void aStrokeGivesAToken()
    {
        QFETCH(QString, pointer);
        QFETCH(int, least);
        start(q("panel"));
        QVERIFY(waitForPicture());
        Points points = wave(34);
        if (pointer == q("mouse"))
            strokeWithMouse(points);
        else if (pointer == q("finger"))
            strokeWithFinger(points);
        else if (pointer == q("clicks"))
            drawByClicks(points);
        else if (pointer == q("control"))
            strokeWithMouse(fromControl());
        else
            drawByKeys();
        QVERIFY(waitFor([this] { return service().count(verify) == 1; }));
        const QString v = service().query(verify).value(q("v"));
        // Three digits for each coordinate of each point.
        QVERIFY2(v.size() / 9 >= least, qPrintable(QString::number(v.size() / 9)));
        pass(1100ms);
        QCOMPARE(said(), (QStringList{q("ready"), q("passed main-token")}));
        QCOMPARE(service().count(q("refresh")), 0);
        QCOMPARE(pointCount(), 0);
    }

    void strokesThatAreNone_data()
    {
        const auto row = addColumns<QString>({"what"});
        for (const char *what : {"right button", "disable", "hide", "reset", "too short"})
            row(what, q(what));
    }

    void strokesThatAreNone()
    {
        QFETCH(QString, what);
        start(q("panel"));
        QVERIFY(waitForPicture());
        auto *const panel = qobject_cast<QQuickItem *>(part(q("panel")));
        const Points points = wave(what == q("too short") ? 3 : 14);
        const auto button = what == q("right button") ? Qt::RightButton : Qt::LeftButton;
        QTest::mousePress(&window(), button, {}, points.front().toPoint());
        for (const QPointF &point : points)
            QTest::mouseMove(&window(), point.toPoint());
        QCOMPARE(pointCount() > 0, button == Qt::LeftButton);
        if (what == q("disable"))
            panel->setEnabled(false);
        if (what == q("hide"))
            panel->setVisible(false);
        if (what == q("reset"))
            reset(q("panel"));
        QTest::mouseRelease(&window(), button, {}, points.back().toPoint());
        settle();
        QCOMPARE(pointCount(), 0);
        QCOMPARE(service().count(verify), 0);
    }

    void answersAreShown_data()
    {
        const auto row = addColumns<QString, QByteArray, QString, QString, QString>(
            {"what", "body", "bar", "text", "said"});
        using Body = QByteArray;
        row("ready", QString(), Body(), q("promptBar"), q("Draw along the curve"), q("ready"));
        row("refused", q("config"), Body(R"({"code":"0101"})"), q("errorBar"), q("Access denied. Try again."),
            q("failed 101"));
        row("broken", q("get"), Body("?"), q("errorBar"), q("Something went wrong (request failed)"),
            q("failed 3840"));
        row("wrong", verify, Body(R"({"code":"0104"})"), q("errorBar"), q("Not quite right. Try again."),
            q("ready, wrong"));
        row("expired", verify, Body(R"({"code":"1002"})"), q("errorBar"), q("Expired. Try again."),
            q("ready, failed 1002"));
    }

    void answersAreShown()
    {
        QFETCH(QString, what);
        QFETCH(QByteArray, body);
        QFETCH(QString, bar);
        if (!what.isEmpty())
            service().answerBytes(what, body);
        start(q("panel"));
        settle();
        if (what == verify) {
            QVERIFY(waitForPicture());
            stroke();
            settle();
        }
        QQuickItem *const shown = item(bar);
        QVERIFY(shown);
        QTEST(shown->property("text").toString(), "text");
        QTEST(said().join(q(", ")), "said");
        auto *const accessible = QAccessible::queryAccessibleInterface(shown);
        QCOMPARE(accessible->text(QAccessible::Name), shown->property("text").toString());
        if (!said().last().startsWith(q("failed")))
            return;
        service().extend(config, {{q("code"), q("0103")}});
        service().answerBytes(what, R"({"code":"0103","img":"1","type":"draw"})");
        forgetAsked();
        clickOn(bar);
        settle();
        QVERIFY(asked().startsWith(outageSwitch));
    }

    void controlsFollowTheService()
    {
        service().extend(config, {{q("guide"), true}});
        service().extend(q("get"), {{q("adlinkword"), q("An\nadvertisement")}, {q("adlink"), q("no page")}});
        start(q("panel"));
        QVERIFY(waitForPicture());
        QVERIFY(item(q("helpButton")));
        QCOMPARE(item(q("adButton"))->property("text").toString(), q("An advertisement"));
        QVERIFY(!item(q("outageBadge")));
        forgetAsked();
        clickOn(q("refreshButton"));
        settle();
        QCOMPARE(asked(), QStringList(q("refresh")));
        QVERIFY(!item(q("adButton")));
        service().answer(outageSwitch, {{q("active"), true}});
        reset(q("panel"));
        settle();
        QVERIFY(waitForPicture());
        QVERIFY(item(q("outageBadge")) && item(q("helpButton")));
    }

    void charactersAreTyped()
    {
        service().extend(config, {{q("type"), q("character")}});
        start(q("panel"));
        QVERIFY(waitForPicture());
        QTRY_VERIFY(item(q("characterField")));
        clickOn(q("doneButton"));
        clickOn(q("characterField"));
        QTest::keyClick(&window(), Qt::Key_A);
        QTest::keyClick(&window(), Qt::Key_Return);
        QCOMPARE(service().count(verify), 0);
        clickOn(q("doneButton"));
        QVERIFY(waitFor([this] { return service().count(verify) == 1; }));
        QCOMPARE(service().query(verify).value(q("v")), q("a"));
        QCOMPARE(item(q("characterField"))->property("text").toString(), QString());
        pass(1100ms);
        QCOMPARE(said().last(), q("passed main-token"));
    }

    void whatIsOnScreenFollowsTheSettings()
    {
        start(q("panel"));
        start(q("button"));
        QVERIFY(waitForPicture());
        QTRY_VERIFY(item(q("promptBar")) && item(q("stroke")));
        QVSDKManager::setPreferredLanguage(q("zh-Hans"));
        QCOMPARE(item(q("promptBar"))->property("text").toString(), q("请沿图中曲线画线"));
        const QColor accent(0, 100, 0);
        settings().setProperty("accent", accent);
        QCOMPARE(item(q("stroke"))->property("color").value<QColor>(), accent);
        settings().setProperty("accent", QColor());
    }

    void anotherWayIsOffered()
    {
        auto *const panel = part(q("panel"));
        QVERIFY(waitForPicture());
        QVERIFY(!item(q("alternativeButton")));
        panel->setProperty("offersAlternative", true);
        clickOn(q("alternativeButton"));
        QCOMPARE(said(), (QStringList{q("ready"), q("alternative")}));
    }

private:
    [[nodiscard]] int pointCount() const
    {
        int count = 0;
        const auto strokes = window().findChildren<QQuickItem *>(q("stroke"));
        for (QQuickItem *const each : strokes) {
            int points = 0;
            QMetaObject::invokeMethod(each, "pointCount", Q_RETURN_ARG(int, points));
            count += points;
        }
        return count;
    }

    void drawByClicks(const Points &points)
    {
        QTest::mouseClick(&window(), Qt::LeftButton, {}, points.front().toPoint());
        for (const QPointF &point : points) {
            advance(16ms);
            QTest::mouseMove(&window(), point.toPoint());
        }
        QTest::mouseClick(&window(), Qt::LeftButton, {}, points.back().toPoint());
    }

    [[nodiscard]] Points fromControl() const
    {
        Points points = wave(24);
        points.insert(points.begin(), centreOf(*item(q("refreshButton"))));
        return points;
    }

    void drawByKeys()
    {
        item(q("picture"))->forceActiveFocus(Qt::TabFocusReason);
        QVERIFY(item(q("penHint")));
        QTest::keyClick(&window(), Qt::Key_Space);
        QVERIFY(!item(q("penHint")));
        QTest::keyPress(&window(), Qt::Key_Right);
        for (int i = 0; i < 20; ++i) {
            advance(16ms);
            QTest::keyPress(&window(), Qt::Key_Right);
        }
        QTest::keyRelease(&window(), Qt::Key_Right);
        QTest::keyClick(&window(), Qt::Key_Escape);
        QCOMPARE(pointCount(), 0);
        QTest::keyClick(&window(), Qt::Key_Space);
        for (int i = 0; i < 20; ++i) {
            advance(16ms);
            QTest::keyClick(&window(), i % 2 == 0 ? Qt::Key_Left : Qt::Key_Up);
        }
        QTest::keyClick(&window(), Qt::Key_Space);
    }
};

QV_TEST(TestQuickPanel)
#include "TestQuickPanel.moc"
