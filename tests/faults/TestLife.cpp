#include "draw/QVRenderDrawView.h"
#include "faults/FaultsTestCase.h"
#include "popup/QVWindow.h"
#include "support/QVPointerInput.h"
#include "support/QVStillStyle.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QScopeGuard>

using namespace std::chrono_literals;

namespace {

/// Where an attempt stands when something ends.
constexpr const char *states[] = {
    "before anything", "switch asked",    "config asked", "answer asked", "picture asked", "ready",
    "drawing",         "drawing by keys", "verify asked", "passed",       "failed",        "refreshing",
};

constexpr const char *ends[] = {"manager", "widget", "delegate", "host window", "everything"};

} // namespace

/// Whatever ends, whenever: nothing is called that has gone, and nothing stays behind.
class TestLife : public FaultsTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void anythingMayEndAnyTime_data() { rows(); }
    void anythingMayEndAnyTime()
    {
        QFETCH(int, style);
        // Managers that are lost are what this is about.
        QLoggingCategory::setFilterRules(QStringLiteral("quarvo.modes=false"));
        const auto restore = qScopeGuard([] { QLoggingCategory::setFilterRules({}); });
        const QVStillStyle still;
        int turn = style;
        for (const char *const state : states) {
            for (const char *const end : ends) {
                // The modes take turns, as the front-ends have most of their code in common. Five ends and
                // three modes: each end meets each mode.
                if (turn++ % 3 != 0 || (style == QVVerifyStyleInvisible && end == QByteArray("widget")))
                    continue;
                openMode(QVVerifyStyle(style));
                arrive(state);
                endLife(end);
                const QByteArray where = QByteArray(state) + ", " + end;
                QVERIFY2(!QTest::currentTestFailed(), where.constData());
                advance(1s);
                settle();
                QVERIFY2(ended() <= begun(), where.constData());
                finish();
                // The longest deadline may still be running.
                QVERIFY2(passUntil([this] { return time().pendingCount() == 0; }), where.constData());
                QCOMPARE(popupCount(), 0);
                prepare();
            }
        }
    }

    void tenOfEachFrontEndAtOnce()
    {
        std::vector<std::unique_ptr<QVClickManager>> clicks;
        std::vector<std::unique_ptr<QVEmbedManager>> embeds;
        std::vector<std::unique_ptr<QVInvisibleManager>> invisibles;
        int passedCount = 0;
        int readyCount = 0;
        service().extend(QStringLiteral("click"), {{QStringLiteral("code"), QStringLiteral("0103")},
                                                   {QStringLiteral("token"), QStringLiteral("t")}});
        for (int i = 0; i < 10; ++i) {
            clicks.push_back(std::make_unique<QVClickManager>());
            embeds.push_back(std::make_unique<QVEmbedManager>());
            invisibles.push_back(std::make_unique<QVInvisibleManager>());
            QWidget *const panel = embeds.back()->embedView();
            panel->setParent(host());
            panel->setGeometry(i * 20, 50, 414, 300);
            panel->show();
            QAbstractButton *const button = clicks.back()->clickButton();
            button->setParent(host());
            button->show();
            const auto count = [&passedCount] {
                ++passedCount;
            };
            connect(clicks.back().get(), &QVClickManager::passed, this, count);
            connect(invisibles.back().get(), &QVInvisibleManager::passed, this, count);
            connect(embeds.back().get(), &QVEmbedManager::ready, this, [&readyCount] { ++readyCount; });
            button->click();
            invisibles.back()->startInsivible();
        }
        advance(100ms);
        QVERIFY(waitFor([&] { return service().count(QStringLiteral("click")) == 20; }));
        QVERIFY(waitFor([&] { return readyCount == 10; }));
        settle();
        advance(5s);
        QCOMPARE(passedCount, 20);
    }

    void settingsMayChangeBetweenAndDuringRequests()
    {
        openMode(QVVerifyStyleEmbed);
        faults().misbehave(QStringLiteral("/api/get/v1"), hang());
        advance(100ms);
        const QStringList languages{QStringLiteral("zh-Hans"), QString(), QStringLiteral("en")};
        for (const QString &language : languages) {
            QVERIFY(waitFor([this] { return faults().hits() > 0; }));
            QVSDKManager::setPreferredLanguage(language);
            QVSDKManager::setQuarvoSDKVid(QString(), QString());
            QVSDKManager::setOutageServer(QString());
            faults().misbehave(QStringLiteral("/api/get/v1"), hang());
            QVSDKManager::setQuarvoSDKVid(QStringLiteral("other"), QStringLiteral("9"));
            reset();
        }
        faults().behave();
        reset();
        QVERIFY(waitForReady());
        QCOMPARE(service().query(QStringLiteral("get")).value(QStringLiteral("id")), QStringLiteral("other"));
        QCOMPARE(panelFailures(), 0);
    }

private:
    static FaultService::Fault hang()
    {
        return [](const QVReceivedRequest &) {
            return QVScript();
        };
    }

    static void rows()
    {
        QTest::addColumn<int>("style");
        QTest::newRow("embed") << int(QVVerifyStyleEmbed);
        QTest::newRow("click") << int(QVVerifyStylePopup);
        QTest::newRow("invisible") << int(QVVerifyStyleInvisible);
    }

    void arrive(const QByteArray &state)
    {
        static const QHash<QByteArray, const char *> asked{{"switch asked", "/config"},
                                                           {"config asked", "/app/config"},
                                                           {"answer asked", "/api/"},
                                                           {"picture asked", "/pictures/"}};
        if (state == "before anything")
            return;
        if (asked.contains(state))
            faults().misbehave(QLatin1String(asked.value(state)), hang());
        if (state == "failed")
            service().answerBytes(QStringLiteral("config"), "oops");
        begin();
        if (asked.contains(state))
            QVERIFY(waitFor([this] { return faults().hits() > 0; }));
        else if (state == "failed")
            QVERIFY(waitFor([this] { return !message().isEmpty(); }));
        else
            arriveInPanel(state);
    }

    void arriveInPanel(const QByteArray &state)
    {
        QVERIFY(waitForReady());
        if (state == "ready")
            return;
        if (state == "refreshing") {
            faults().misbehave(QStringLiteral("/api/refresh"), hang());
            clickPart("refreshButton");
        } else if (state == "drawing") {
            advance(500ms);
            QVPointerInput::press(*panel(), QPoint(100, 100));
            QVPointerInput::move(*panel(), QPoint(130, 120));
        } else if (state == "drawing by keys") {
            part("imageView")->setFocus(Qt::TabFocusReason);
            QTest::keyClick(part("imageView"), Qt::Key_Space);
            QTest::keyClick(part("imageView"), Qt::Key_Right);
        } else if (state == "verify asked") {
            faults().misbehave(QStringLiteral("/api/verify"), hang());
            draw();
        } else {
            draw();
            QVERIFY(waitFor([this] { return service().count(QStringLiteral("verify")) > 0; }));
            settle();
        }
    }

    void endLife(const QByteArray &end)
    {
        if (end == "manager" || end == "everything")
            destroyManager();
        if (end == "delegate" || end == "everything")
            destroyDelegate();
        if (end == "widget" || end == "everything")
            destroyWidget();
        if (end == "host window" || end == "everything")
            destroyHost();
    }
};

QV_TEST(TestLife)
#include "TestLife.moc"
