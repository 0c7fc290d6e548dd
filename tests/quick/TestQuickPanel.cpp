#include "conversations/Conversations.h"
#include "quick/QuickTestCase.h"
#include "settings/QVSDKManager.h"

#include <QAccessible>

using namespace std::chrono_literals;

/// The panel: what it shows, and what the user does with it by mouse, finger and keys.
class TestQuickPanel : public QuickTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void drawings_data() { Conversations::addDrawings(); }
    void drawings() { follow(); }

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
        QCOMPARE(item(q("characterField"))->property("text").toString(), q("a"));
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
