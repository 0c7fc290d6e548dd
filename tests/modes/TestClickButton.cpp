#include "modes/ModesTestCase.h"
#include "modes/Outcomes.h"
#include "modes/QVClickButton.h"
#include "popup/QVWindow.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "settings/QVSDKManager.h"
#include "support/QVPointerInput.h"

#include <QAccessible>
#include <QPushButton>
#include <QSignalSpy>

using namespace std::chrono_literals;

namespace {

/// A host that does not let its window be closed.
class Refusal : public QObject
{
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Close)
            event->ignore();
        return event->type() == QEvent::Close;
    }
};

} // namespace

class TestClickButton : public ModesTestCase
{
    Q_OBJECT

public Q_SLOTS:
    void destroyButton() { delete m_button; }

private Q_SLOTS:

    void inputMovesTheStatus_data()
    {
        addColumns<QStringList, int>({"steps", "status"});
        const auto row = [](const char *steps, int status) {
            QTest::newRow(steps) << words(steps) << status;
        };
        row("tap", 2);
        row("finger", 2);
        row("screen reader", 2);
        row("return", 2);
        row("press", 1);
        row("right press", 0);
        row("press, out", 0);
        row("press, up outside", 0);
        row("press, out, in, up", 2);
        row("press, hide, show, up", 0);
        row("press, disable, enable, up", 0);
        row("press, focus elsewhere, up", 0);
        row("press, escape, up", 0);
        row("up", 0);
        row("space down", 1);
        row("space down, space up", 2);
        row("space down, escape, space up", 0);
        row("space up", 0);
        row("disable, press, up", 0);
        row("disable, finger", 0);
        row("reset when touched, return", 0);
        row("disable when touched, return", 0);
        row("fail, press", 1);
        row("fail, press, up", 2);
    }

    void inputMovesTheStatus()
    {
        QFETCH(QStringList, steps);
        QVClickButton &button = *m_button;
        const QPoint in(20, 20);
        const QPoint out(-20, 20);
        QMap<QString, std::function<void()>> actions;
        const auto add = [&](const char *name, const std::function<void()> &action) {
            actions.insert(q(name), action);
        };
        add("tap", [&] { tap(); });
        add("finger", [&] { QVPointerInput::strokeWithFinger(button, {in, in + QPoint(2, 0)}); });
        add("screen reader", [&] {
            QAccessible::queryAccessibleInterface(&button)->actionInterface()->doAction(
                QAccessibleActionInterface::pressAction());
            QVERIFY(waitForStatus(QVClickStatusVerifying));
        });
        add("return", [&] { QTest::keyClick(&button, Qt::Key_Return); });
        add("press", [&] { QVPointerInput::press(button, in); });
        add("right press", [&] { QVPointerInput::press(button, in, Qt::RightButton); });
        add("in", [&] { QVPointerInput::move(button, in); });
        add("out", [&] { QVPointerInput::move(button, out); });
        add("up", [&] { QVPointerInput::release(button, in); });
        add("up outside", [&] { QVPointerInput::release(button, out); });
        add("space down", [&] { QTest::keyPress(&button, Qt::Key_Space); });
        add("space up", [&] { QTest::keyRelease(&button, Qt::Key_Space); });
        add("escape", [&] { QTest::keyPress(&button, Qt::Key_Escape); });
        add("hide", [&] { button.hide(); });
        add("show", [&] { button.show(); });
        add("disable", [&] { button.setEnabled(false); });
        add("enable", [&] { button.setEnabled(true); });
        const auto whenTouched = [&](const char *step, const char *then) {
            add(step, [&actions, &button, then] {
                connect(&button, &QVClickButton::clickStatusChanged, &button,
                        [&actions, then](QVClickStatus status) {
                            if (status == QVClickStatusTouching)
                                actions[q(then)]();
                        });
            });
        };
        add("reset", [&] { button.reset(); });
        whenTouched("reset when touched", "reset");
        whenTouched("disable when touched", "disable");
        add("focus elsewhere", [&] { host().setFocus(); });
        add("fail", [&] {
            answerForStatus(QVClickStatusFailed);
            button.click();
            QVERIFY(waitForStatus(QVClickStatusFailed));
        });
        button.setFocus();
        for (const QString &step : steps)
            actions[step]();
        advance(0ms);
        QTEST(int(button.clickStatus()), "status");
    }

    void sequenceDecides_data()
    {
        const auto row = addColumns<QString, QByteArray, int, QStringList, QLatin1String>(
            {"what", "body", "status", "said", "text"});
        using Body = QByteArray;
        row("draw", click, Body(R"({"code":"0104","img":"1"})"), 2, words("popup"), QVKey::inVerify);
        row("outage", outageSwitch, Body(R"({"active":true})"), 3, words("popup"), QVKey::drawCaptcha);
        row("pass", click, Body(R"({"code":"0103","token":"t"})"), 4, words(""), QVKey::clickPass);
        row("switch is no JSON", outageSwitch, Body("<html>"), 5, words("failed 3840"), QVKey::systemError);
        row("switch is no object", outageSwitch, Body("[1]"), 2, words("popup"), QVKey::inVerify);
        row("config is refused", config, Body(R"({"code":"0101"})"), 5, words("failed 101"),
            QVKey::accessDenied);
        row("click is refused", click, Body(R"({"code":"1002"})"), 5, words("failed 1002"), QVKey::expired);
    }

    void sequenceDecides()
    {
        QFETCH(QString, what);
        QFETCH(QByteArray, body);
        QFETCH(int, status);
        QFETCH(QStringList, said);
        QFETCH(QLatin1String, text);
        service().answerBytes(what, body);
        delay(outageGet, 1h);
        tap();
        QVERIFY(waitForStatus(status));
        QVERIFY(waitFor([&] { return m_outcomes->said() == said; }));
        const QStringList all{outageSwitch, config, click};
        // The outage popup looks at the switch once more by itself.
        if (status != 3)
            QCOMPARE(asked(), all.mid(0, all.indexOf(status == 5 ? what : click) + 1));
        QCOMPARE(m_outcomes->told(), QStringList());
        QCOMPARE(popup() != nullptr, said == words("popup"));
        const QString message = qv_localizedStringForKey(text).replace(
            QLatin1String("{domain}"), qv_localizedStringForKey(QVKey::otherRequestError));
        QCOMPARE(m_button->statusText(), message);
        QCOMPARE(m_button->accessibleName(), message);
    }

    void asksWithTheSettingsOfTheMoment()
    {
        delay(outageSwitch, 10ms);
        tap();
        settle();
        QVSDKManager::setQuarvoSDKVid(q("later"), q("9"));
        pass(10ms);
        QVERIFY(waitFor([] { return popup() != nullptr; }));
        const auto query = service().query(config);
        QCOMPARE(query.value(q("id")) + query.value(q("scene")) + query.value(q("type")), q("later9popup"));
        QCOMPARE(service().query(click).value(q("challenge")), q("main-challenge"));
    }

    void tokenComesHalfASecondLater()
    {
        passByClick();
        tap();
        QVERIFY(waitForStatus(QVClickStatusPassed));
        advance(499ms);
        QCOMPARE(m_outcomes->said(), QStringList());
        advance(1ms);
        QCOMPARE(m_outcomes->said(), words("passed click-token"));
        QCOMPARE(m_outcomes->told(), words("click-token"));
    }

    void takesNoInputWhileBusy_data()
    {
        const auto row = addColumns<int>({"status"});
        row("verifying", 2);
        row("drawing", 3);
        row("passed", 4);
    }

    void takesNoInputWhileBusy()
    {
        QFETCH(int, status);
        QPushButton below(&host());
        below.setGeometry(m_button->geometry());
        below.show();
        below.stackUnder(m_button);
        const QSignalSpy pressed(&below, &QPushButton::pressed);
        answerForStatus(status);
        tap();
        QCOMPARE(pressed.count(), 0);
        QVERIFY(waitForStatus(status));
        if (QVWindow *const window = popup())
            window->hide();
        settle();
        forgetAsked();
        tap();
        QCOMPARE(pressed.count(), 1);
        QTest::keyClick(m_button, Qt::Key_Return);
        QTest::keyClick(m_button, Qt::Key_Space);
        m_button->click();
        settle();
        QCOMPARE(int(m_button->clickStatus()), status);
        QCOMPARE(asked(), QStringList());
        m_button->reset();
        tap();
        QCOMPARE(m_button->clickStatus(), QVClickStatusVerifying);
        QCOMPARE(pressed.count(), 1);
    }

    void closedPopupComesBackWithoutARequest()
    {
        tap();
        QVERIFY(waitForPicture());
        const QVWindow *const window = popup();
        pressClose();
        QCOMPARE(m_button->clickStatus(), QVClickStatusNormal);
        QVERIFY(!popup());
        forgetAsked();
        tap();
        QCOMPARE(popup(), window);
        QCOMPARE(m_button->clickStatus(), QVClickStatusDrawing);
        settle();
        QCOMPARE(asked(), QStringList());
        pressClose();
        QCOMPARE(m_outcomes->said(), words("popup, closed User, popup, closed User"));
    }

    void endsOnceInEachPhase_data()
    {
        const auto row = addColumns<QString, QString, QStringList>({"held", "end", "said"});
        for (const QString &what : {outageSwitch, config, click}) {
            const QByteArray name = what.toLatin1();
            row("reset, " + name, what, q("reset"), words("closed HostReset"));
            row("destroyed, " + name, what, q("destroy"), QStringList());
            row("window closed, " + name, what, q("close"), words("closed WindowGone"));
        }
        row("window refuses", config, q("refuse"), words("popup"));
        row("reset, popup", picture, q("reset"), words("popup, closed HostReset"));
        row("destroyed, popup", picture, q("destroy"), words("popup"));
        row("window closed, popup", picture, q("close"), words("popup, closed WindowGone"));
        row("reset, token", QString(), q("reset"), words("passed click-token"));
        row("destroyed, token", QString(), q("destroy"), QStringList());
    }

    void endsOnceInEachPhase()
    {
        QFETCH(QString, held);
        QFETCH(QString, end);
        const bool isTokenOnItsWay = held.isEmpty();
        if (isTokenOnItsWay)
            passByClick();
        delay(held, 100ms);
        tap();
        QVERIFY(isTokenOnItsWay ? waitForStatus(QVClickStatusPassed)
                                : waitFor([&] { return service().count(held) == 1; }));
        forgetAsked();
        Refusal refusal;
        if (end == q("refuse"))
            host().installEventFilter(&refusal);
        if (end == q("reset"))
            m_button->reset();
        else if (end == q("destroy"))
            delete m_button;
        else
            QCOMPARE(host().close(), end == q("close"));
        pass(1000ms);
        QTEST(m_outcomes->said(), "said");
        QCOMPARE(m_outcomes->told().size(), isTokenOnItsWay ? 1 : 0);
        if (end == q("refuse"))
            return;
        QCOMPARE(asked(), QStringList());
        QCOMPARE(popupCount(), 0);
        QVERIFY(!m_button || m_button->clickStatus() == QVClickStatusNormal);
    }

    void hostMayDestroyTheButtonInAnySignal_data()
    {
        const auto row = addColumns<QByteArray, int>({"signal", "status"});
        row("pressed", QByteArray(SIGNAL(pressed())), -1);
        row("clicked", QByteArray(SIGNAL(clicked())), -1);
        row("popupOpened", QByteArray(SIGNAL(popupOpened())), -1);
        row("closed", QByteArray(SIGNAL(closed(QVCloseReason))), -1);
        row("failed", QByteArray(SIGNAL(failed(QVError))), 5);
        row("passed", QByteArray(SIGNAL(passed(QString))), 4);
        for (int status = 0; status <= 5; ++status)
            QTest::addRow("status %d", status) << QByteArray() << status;
    }

    void hostMayDestroyTheButtonInAnySignal()
    {
        QFETCH(QByteArray, signal);
        QFETCH(int, status);
        if (status > 2)
            answerForStatus(status);
        if (!signal.isEmpty())
            connect(m_button, signal, this, SLOT(destroyButton()));
        else
            connect(m_button, &QVClickButton::clickStatusChanged, this, [&](QVClickStatus reached) {
                if (int(reached) == status)
                    delete m_button;
            });
        tap();
        pass(700ms);
        if (popup())
            pressClose();
        QVERIFY(!m_button);
        pass(1000ms);
        QCOMPARE(popupCount(), 0);
    }

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        m_outcomes = std::make_unique<Outcomes>();
        m_button = new QVClickButton(&host());
        m_button->setGeometry(100, 100, 300, 44);
        m_button->show();
        m_outcomes->watch(m_button.data());
    }

    void finish() override
    {
        delete m_button;
        m_outcomes.reset();
        ModesTestCase::finish();
    }

    void tap() const
    {
        QVPointerInput::press(*m_button, QPoint(150, 22));
        if (m_button)
            QVPointerInput::release(*m_button, QPoint(150, 22));
    }

    [[nodiscard]] bool waitForStatus(int status) const
    {
        return waitFor([this, status] { return m_button->clickStatus() == status; });
    }

    std::unique_ptr<Outcomes> m_outcomes;
    QPointer<QVClickButton> m_button;
};

QV_TEST(TestClickButton)
#include "TestClickButton.moc"
