#include "conversations/Conversations.h"
#include "quick/QuickTestCase.h"

using namespace std::chrono_literals;

/// Attempts by button and in invisible mode, from their start to their one end.
class TestQuickAttempts : public QuickTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void takesInput_data() { Conversations::addInput(); }
    void takesInput() { converse(); }

    void answers_data() { Conversations::addAnswers(); }
    void answers() { converse(); }

    void closes_data() { Conversations::addCloses(); }
    void closes() { converse(); }

    void endsInEachPhase_data()
    {
        Conversations::addEnds({{"reset", ", [0], closed HostReset, |"},
                                {"window close", ", |, [0], closed WindowGone"},
                                // The host's objects are destroyed with the window.
                                {"window destroy", ", |"},
                                {"destroy", ", |"}});
    }
    void endsInEachPhase() { converse(); }

    void expires_data() { Conversations::addLives(); }
    void expires() { converse(); }

    void eachHasItsOwnId()
    {
        for (const QString &name : words("button, invisible, panel")) {
            part(name)->setProperty("vid", name);
            part(name)->setProperty("scene", q("own"));
            start(name);
            pass(300ms);
            QCOMPARE(service().query(config)[q("id")] + service().query(config)[q("scene")], name + q("own"));
            reset(name);
        }
    }

    void hostMayDoAnythingInAnySignal_data()
    {
        const auto row = addColumns<QString, QString, QString>({"mode", "signal", "does"});
        const QStringList ofPopups{q("popup"), q("passed"), q("failed"), q("closed"), q("in popup")};
        const QMap<QString, QStringList> signalsOf{
            {click, ofPopups + QStringList{q("[1]"), q("[2]"), q("[4]")}},
            {q("invisible"), ofPopups},
            {q("embed"), {q("ready"), q("wrong"), q("passed"), q("failed")}}};
        for (const QString &mode : signalsOf.keys()) {
            for (const QString &signal : signalsOf.value(mode)) {
                for (const QString &does : {q("destroy"), q("window destroy"), q("reset"), q("window hide")})
                    row(QStringList{mode, signal, does}.join(q(", ")).toLatin1(), mode, signal, does);
            }
        }
    }

    void hostMayDoAnythingInAnySignal()
    {
        QFETCH(QString, mode);
        QFETCH(QString, signal);
        QFETCH(QString, does);
        bool isDone = false;
        outcomes().heard = [&](const QString &text) {
            if (isDone || !text.startsWith(signal))
                return;
            isDone = true;
            if (does == q("window destroy"))
                QMetaObject::invokeMethod(
                    &window(), [this] { destroyWindow(); }, Qt::QueuedConnection);
            else
                go(does);
        };
        setMode(mode);
        if (signal == q("failed"))
            go(q("answer config 0101"));
        if (signal == q("wrong"))
            go(q("answer verify 0104"));
        if (signal == q("in popup"))
            go(q("answer verify 1002"));
        go(signal == q("[1]") ? q("focus, press") : q("start"));
        pass(300ms);
        if (hasWindow() && isOpen() && signal == q("closed")) {
            clickOn(q("closeButton"));
        } else if (hasWindow() && item(picture) && !isDone) {
            stroke();
            pass(300ms);
        }
        pass(1500ms);
        QVERIFY(isDone);
        QVERIFY(mode == q("embed") || outcomes().ends().size() <= 1);
    }

private:
    void prepare() override
    {
        QuickTestCase::prepare();
        const auto button = [this] {
            return qobject_cast<QQuickItem *>(part(q("button")));
        };
        const auto in = [button] {
            return centreOf(*button());
        };
        addStep("press", [=, this](auto) { QTest::mousePress(&window(), Qt::LeftButton, {}, in()); });
        addStep("in", [=, this](auto) { QTest::mouseMove(&window(), in()); });
        addStep("out", [=, this](auto) { QTest::mouseMove(&window(), in() - QPoint(0, 60)); });
        addStep("lift", [=, this](auto) { QTest::mouseRelease(&window(), Qt::LeftButton, {}, in()); });
        addStep("finger", [=, this](auto) { drawWithFinger({in(), in() + QPoint(2, 0)}); });
        addStep("hide", [=](auto) { button()->setVisible(false); });
        addStep("show", [=](auto) { button()->setVisible(true); });
        addStep("disable", [=](auto) { button()->setEnabled(false); });
        addStep("enable", [=](auto) { button()->setEnabled(true); });
        addStep("focus", [=](auto) { button()->forceActiveFocus(); });
        addStep("focus-elsewhere", [this](auto) { item(q("before"))->forceActiveFocus(); });
        addStep("return", [this](auto) { QTest::keyClick(&window(), Qt::Key_Return); });
        addStep("space-down", [this](auto) { QTest::keyPress(&window(), Qt::Key_Space); });
        addStep("space-up", [this](auto) { QTest::keyRelease(&window(), Qt::Key_Space); });
    }
};

QV_TEST(TestQuickAttempts)
#include "TestQuickAttempts.moc"
