#include "conversations/Conversations.h"
#include "quick/QuickTestCase.h"
#include "settings/QVSDKManager.h"

using namespace std::chrono_literals;

/// The panel: what it shows, and what the user does with it by mouse, finger and keys.
class TestQuickPanel : public QuickTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void drawings_data() { Conversations::addDrawings(); }
    void drawings() { follow(); }

    /// Qt Quick by itself delivers a touch's moves once a frame.
    void aFingerIsFollowedWithinAFrame()
    {
        setMode(q("embed"));
        go(q("start, picture"));
        drawWithFinger(waveFrom({}, 34));
        QVERIFY(waitFor([this] { return service().count(verify) == 1; }));
        // Three digits for each coordinate of each point.
        QVERIFY(service().query(verify).value(q("v")).size() / 9 >= 30);
    }

    void theKeyboardsPenIsExplainedUntilItIsUsed()
    {
        setMode(q("embed"));
        go(q("start, picture"));
        focusPicture(true);
        QVERIFY(item(q("penHint")));
        go(q("keys Space"));
        QVERIFY(!item(q("penHint")));
    }

    void charactersAreTyped()
    {
        service().extend(config, {{q("type"), q("character")}});
        start(q("panel"));
        QVERIFY(waitForPicture());
        QVERIFY(waitFor([this] { return item(q("characterField")) != nullptr; }));
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
        QVERIFY(waitFor([this] { return item(q("promptBar")) && item(q("stroke")); }));
        QVSDKManager::setPreferredLanguage(q("zh-Hans"));
        QCOMPARE(item(q("promptBar"))->property("text").toString(), q("请沿图中曲线画线"));
        const QColor accent(0, 100, 0);
        settings().setProperty("accent", accent);
        QCOMPARE(item(q("stroke"))->property("color").value<QColor>(), accent);
        settings().setProperty("accent", QColor());
        for (const int presentation : {1, 0}) {
            settings().setProperty("popupPresentation", presentation);
            QCOMPARE(settings().property("popupPresentation").toInt(), presentation);
        }
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
};

QV_TEST(TestQuickPanel)
#include "TestQuickPanel.moc"
