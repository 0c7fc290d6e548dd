#include "quick/QuickTestCase.h"

using namespace std::chrono_literals;

/// Attempts by button and in invisible mode, from their start to their one end.
class TestQuickAttempts : public QuickTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void inputMovesTheStatus_data()
    {
        addColumns<QStringList, int>({"steps", "status"});
        const auto row = [](const char *steps, int status) {
            QTest::newRow(steps) << q(steps).split(q(", ")) << status;
        };
        row("finger", 2);
        row("return", 2);
        row("press", 1);
        row("press, out", 0);
        row("press, out, in, up", 2);
        row("press, up", 2);
        row("press, hide, show, up", 0);
        row("press, disable, enable, up", 0);
        row("space down, space up", 2);
        row("disable, press, up", 0);
        row("fail, press, up", 2);
    }

    void inputMovesTheStatus()
    {
        QFETCH(QStringList, steps);
        auto &button = *qobject_cast<QQuickItem *>(part(q("button")));
        button.forceActiveFocus();
        for (const QString &step : steps) {
            perform(step, button);
            QCoreApplication::processEvents();
        }
        QTEST(button.property("status").toInt(), "status");
    }

    void answersDecide_data()
    {
        const auto row = addColumns<QString, QString, QByteArray, QString, int, QString>(
            {"mode", "what", "body", "said", "status", "text"});
        using Body = QByteArray;
        const Body draw(R"({"code":"0104","img":"1"})");
        const Body pass(R"({"code":"0103","token":"t"})");
        const Body denial(R"({"code":"0101"})");
        const Body outage(R"({"active":true})");
        const QString button = q("button");
        row("draw", button, click, draw, q("popup"), 2, q("Verifying…"));
        row("pass", button, click, pass, q("passed t"), 4, q("Verified"));
        row("refused", button, config, denial, q("failed 101"), 5, q("Access denied. Try again."));
        row("outage", button, outageSwitch, outage, q("popup"), 3, q("Draw along the curve"));
        row("draw, invisible", q("invisible"), click, draw, q("popup"), 0, QString());
        row("refused, invisible", q("invisible"), config, denial, q("failed 101"), 0, QString());
    }

    void answersDecide()
    {
        QFETCH(QString, mode);
        QFETCH(QString, what);
        QFETCH(QByteArray, body);
        QFETCH(QString, said);
        service().answerBytes(what, body);
        start(mode);
        pass(500ms);
        QCOMPARE(heard(), QStringList{said});
        QCOMPARE(isOpen(), said == q("popup"));
        if (mode != q("button"))
            return;
        QTEST(part(mode)->property("status").toInt(), "status");
        QTEST(part(mode)->property("text").toString(), "text");
    }

    void tokensComeWhenTheUserHasSeenIt_data()
    {
        const auto row = addColumns<QString, bool, int>({"mode", "animation", "milliseconds"});
        row("button", q("button"), false, 500);
        row("badge", q("invisible"), true, 1000);
        row("no badge", q("invisible"), false, 0);
    }

    void tokensComeWhenTheUserHasSeenIt()
    {
        QFETCH(QString, mode);
        QFETCH(bool, animation);
        QFETCH(int, milliseconds);
        passByClick();
        part(q("invisible"))->setProperty("animation", animation);
        start(mode);
        settle();
        QCOMPARE(item(q("badge")) != nullptr, animation);
        advance(1ms * milliseconds - 1ms);
        QCOMPARE(heard().size(), milliseconds > 0 ? 0 : 1);
        advance(1ms);
        QCOMPARE(heard(), QStringList(q("passed click-token")));
        QVERIFY(!item(q("badge")));
    }

    void takesNoInputWhileBusy()
    {
        service().delay(outageSwitch, 1h);
        start(q("button"));
        settle();
        const qsizetype before = asked().size();
        clickOn(q("button"));
        QTest::keyClick(&window(), Qt::Key_Return);
        start(q("button"));
        settle();
        QCOMPARE(asked().size(), before);
        QCOMPARE(part(q("button"))->property("status").toInt(), 2);
    }

    void endsOnceInEachPhase_data()
    {
        const auto row = addColumns<QString, QString, QString, QString>({"mode", "held", "end", "said"});
        for (const QString &mode : {q("button"), q("invisible")}) {
            for (const QString &held : {outageSwitch, config, click, picture, q("stroke"), verify}) {
                const QByteArray name = (mode + q(", ") + held).toLatin1();
                const bool isOpen = held == picture || held == q("stroke") || held == verify;
                const QString before = isOpen ? q("popup, ") : QString();
                row(name + ", reset", mode, held, q("reset"), before + q("closed HostReset"));
                row(name + ", closed", mode, held, q("close"), before + q("closed WindowGone"));
                row(name + ", window destroyed", mode, held, q("destroy window"), before.left(5));
                row(name + ", unloaded", mode, held, q("unload"), before.left(5));
            }
        }
    }

    void endsOnceInEachPhase()
    {
        QFETCH(QString, mode);
        QFETCH(QString, held);
        QFETCH(QString, end);
        service().delay(held, 100ms);
        part(q("invisible"))->setProperty("animation", true);
        start(mode);
        settle();
        if (held == verify || held == q("stroke")) {
            QVERIFY(waitForPicture());
            if (held == verify)
                stroke();
            else
                QTest::mousePress(&window(), Qt::LeftButton, {}, wave().front().toPoint());
            settle();
        }
        forgetAsked();
        if (end == q("reset"))
            reset(mode);
        else if (end == q("close"))
            window().close();
        else if (end == q("unload"))
            unload(mode);
        else
            destroyWindow();
        pass(1200ms);
        QTEST(heard().join(q(", ")), "said");
        QCOMPARE(asked(), QStringList());
        QVERIFY(!isOpen() && !item(q("badge")));
    }

    void hostMayDoAnythingInAnySignal_data()
    {
        const auto row = addColumns<QString, QString, QString>({"mode", "signal", "does"});
        const QStringList ofPopups{q("popup"), q("passed"), q("failed"), q("closed"), q("in popup")};
        const QMap<QString, QStringList> signalsOf{
            {q("button"), ofPopups + QStringList{q("status 1"), q("status 2"), q("status 4")}},
            {q("invisible"), ofPopups},
            {q("panel"), {q("ready"), q("wrong"), q("passed"), q("failed")}}};
        for (const QString &mode : signalsOf.keys()) {
            for (const QString &signal : signalsOf.value(mode)) {
                for (const QString &does : {q("unload"), q("destroy window"), q("reset"), q("hide")})
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
        log().reaction = [&](const QString &text) {
            if (isDone || !text.startsWith(signal))
                return;
            isDone = true;
            if (does == q("unload"))
                unload(mode);
            else if (does == q("reset"))
                reset(mode);
            else if (does == q("hide"))
                window().hide();
            else
                QMetaObject::invokeMethod(
                    &window(), [this] { destroyWindow(); }, Qt::QueuedConnection);
        };
        if (signal == q("failed"))
            service().extend(config, {{q("code"), q("0101")}});
        if (signal == q("wrong"))
            service().extend(verify, {{q("code"), q("0104")}});
        if (signal == q("in popup"))
            service().extend(verify, {{q("code"), q("1002")}});
        part(mode);
        if (signal == q("status 1"))
            QTest::mousePress(&window(), Qt::LeftButton, {}, centreOf(*item(mode)));
        else
            start(mode);
        pass(300ms);
        if (hasWindow() && isOpen() && signal == q("closed")) {
            clickOn(q("closeButton"));
        } else if (hasWindow() && item(picture) && !isDone) {
            stroke();
            pass(300ms);
        }
        pass(1500ms);
        QVERIFY(isDone);
        QVERIFY(mode == q("panel") || ends().size() <= 1);
    }

private:
    void perform(const QString &step, QQuickItem &button)
    {
        const QPoint in = centreOf(button);
        if (step == q("press"))
            QTest::mousePress(&window(), Qt::LeftButton, {}, in);
        else if (step == q("in") || step == q("out"))
            QTest::mouseMove(&window(), step == q("in") ? in : in - QPoint(0, 60));
        else if (step == q("up"))
            QTest::mouseRelease(&window(), Qt::LeftButton, {}, in);
        else if (step == q("finger"))
            strokeWithFinger({in, in + QPoint(2, 0)});
        else if (step == q("return"))
            QTest::keyClick(&window(), Qt::Key_Return);
        else if (step == q("space down"))
            QTest::keyPress(&window(), Qt::Key_Space);
        else if (step == q("space up"))
            QTest::keyRelease(&window(), Qt::Key_Space);
        else if (step == q("hide") || step == q("show"))
            button.setVisible(step == q("show"));
        else if (step == q("disable") || step == q("enable"))
            button.setEnabled(step == q("enable"));
        else
            failAtOnce();
    }

    void failAtOnce()
    {
        service().extend(config, {{q("code"), q("0101")}});
        start(q("button"));
        settle();
    }

    /// Without the statuses.
    [[nodiscard]] QStringList heard()
    {
        QStringList heard = said();
        heard.removeIf([](const QString &text) { return text.startsWith(q("status")); });
        return heard;
    }
    [[nodiscard]] QStringList ends()
    {
        QStringList ends = heard();
        ends.removeIf(
            [](const QString &text) { return text.startsWith(q("popup")) || text.startsWith(q("in ")); });
        return ends;
    }
};

QV_TEST(TestQuickAttempts)
#include "TestQuickAttempts.moc"
