#include "conversations/Conversations.h"
#include "quick/QuickTestCase.h"
#include "settings/QVSDKManager.h"

#include <QSignalSpy>

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

    void whatIsOnScreenFollowsTheSettings()
    {
        start(q("panel"));
        start(q("button"));
        QVERIFY(waitForPicture());
        QVERIFY(waitFor([this] { return item(q("promptBar")) && item(q("stroke")); }));
        QVSDKManager::setPreferredLanguage(q("zh-Hans"));
        QCOMPARE(item(q("promptBar"))->property("text").toString(), q("请沿图中曲线画线"));
        QCOMPARE(statusText(), q("正在验证…"));
        const QColor accent(0, 100, 0);
        settings().setProperty("accent", accent);
        QCOMPARE(item(q("stroke"))->property("color").value<QColor>(), accent);
        settings().setProperty("accent", QColor());
        QCOMPARE(item(picture)->cursor().shape(), Qt::BitmapCursor);
    }

    void anotherWindowEndsTheLine()
    {
        setMode(q("embed"));
        go(q("start, picture, press, jump"));
        QWindow other;
        for (QWindow *const active : {&other, static_cast<QWindow *>(&window())}) {
            active->show();
            active->requestActivate();
            QVERIFY(QTest::qWaitForWindowActive(active));
        }
        go(q("lift, wait 100"));
        QCOMPARE(service().count(verify), 0);
    }

    void eachSettingIsKept()
    {
        const QVariantMap values{
            {q("vid"), q("an id")},        {q("scene"), q("a scene")},
            {q("language"), q("zh-Hant")}, {q("outageServer"), q("https://outage.example")},
            {q("outageOpen"), true},       {q("attemptTimeout"), 60'000},
            {q("tokenLifetime"), 7'000},   {q("popupPresentation"), q("WholeWindow")},
            {q("appearance"), q("Dark")},  {q("popupClosesOnOutsideClick"), true},
            {q("contrast"), q("High")},    {q("reducedMotion"), false},
        };
        QVariantMap before;
        for (const QString &name : values.keys())
            before.insert(name, settings().property(name.toLatin1()));
        for (const QVariantMap &given : {values, before}) {
            const QSignalSpy changes(&settings(), SIGNAL(changed()));
            for (const QString &name : given.keys())
                settings().setProperty(name.toLatin1(), given.value(name));
            QCOMPARE(changes.size(), given.size());
            for (const QString &name : given.keys())
                QCOMPARE(settings().property(name.toLatin1()).toString(), given.value(name).toString());
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
