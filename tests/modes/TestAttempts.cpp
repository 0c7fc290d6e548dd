#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"
#include "popup/QVWindow.h"
#include "support/QVPointerInput.h"
#include "views/QVInvisibleAnimationView.h"

#include <QAccessible>
#include <QApplication>
#include <QPushButton>

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

/// Attempts by button and in invisible mode, from their start to their one end.
class TestAttempts : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void inputMovesTheStatus_data()
    {
        addColumns<QStringList, int>({"steps", "status"});
        const auto row = [](const char *steps, int status) {
            QTest::newRow(steps) << words(steps) << status;
        };
        row("finger", 2);
        row("screen reader", 2);
        row("return", 2);
        row("press", 1);
        row("right press", 0);
        row("press, out", 0);
        row("press, up outside", 0);
        row("press, up", 2);
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
        QVClickButton &button = *clickManager().button();
        const QPoint in(20, 20);
        const QPoint out(-20, 20);
        QMap<QString, std::function<void()>> actions;
        actions[q("finger")] = [&] {
            QVPointerInput::strokeWithFinger(button, {in, in + QPoint(2, 0)});
        };
        actions[q("screen reader")] = [&] {
            QAccessible::queryAccessibleInterface(&button)->actionInterface()->doAction(
                QAccessibleActionInterface::pressAction());
            QVERIFY(waitFor([&] { return button.clickStatus() == QVClickStatusVerifying; }));
        };
        actions[q("return")] = [&] {
            QTest::keyClick(&button, Qt::Key_Return);
        };
        actions[q("press")] = [&] {
            QVPointerInput::press(button, in);
        };
        actions[q("right press")] = [&] {
            QVPointerInput::press(button, in, Qt::RightButton);
        };
        actions[q("in")] = [&] {
            QVPointerInput::move(button, in);
        };
        actions[q("out")] = [&] {
            QVPointerInput::move(button, out);
        };
        actions[q("up")] = [&] {
            QVPointerInput::release(button, in);
        };
        actions[q("up outside")] = [&] {
            QVPointerInput::release(button, out);
        };
        actions[q("space down")] = [&] {
            QTest::keyPress(&button, Qt::Key_Space);
        };
        actions[q("space up")] = [&] {
            QTest::keyRelease(&button, Qt::Key_Space);
        };
        actions[q("escape")] = [&] {
            QTest::keyPress(&button, Qt::Key_Escape);
        };
        actions[q("hide")] = [&] {
            button.hide();
        };
        actions[q("show")] = [&] {
            button.show();
        };
        actions[q("disable")] = [&] {
            button.setEnabled(false);
        };
        actions[q("enable")] = [&] {
            button.setEnabled(true);
        };
        actions[q("reset")] = [&] {
            button.reset();
        };
        actions[q("focus elsewhere")] = [&] {
            host().setFocus();
        };
        actions[q("fail")] = [&] {
            answerCode(config, q("0101"));
            button.click();
            settle();
        };
        for (const QString &then : {q("reset"), q("disable")}) {
            actions[then + q(" when touched")] = [&, then] {
                connect(&button, &QVClickButton::clickStatusChanged, &button,
                        [&, then](QVClickStatus status) {
                            if (status == QVClickStatusTouching)
                                actions[then]();
                        });
            };
        }
        button.setFocus();
        for (const QString &step : steps)
            actions[step]();
        advance(0ms);
        QTEST(int(button.clickStatus()), "status");
    }

    void answersDecide_data()
    {
        const auto row = addColumns<bool, QString, QByteArray, QString, QString, int, QString>(
            {"isInvisible", "what", "body", "said", "asked", "status", "text"});
        using Body = QByteArray;
        const Body draw(R"({"code":"0104","img":"1"})");
        const Body pass(R"({"code":"0103","token":"t"})");
        const Body refusal(R"({"code":"1002"})");
        const Body denial(R"({"code":"0101"})");
        const Body outage(R"({"active":true})");
        const QString all = q("switch config click");
        row("draw", false, click, draw, q("popup"), all, 2, q("Verifying…"));
        row("pass", false, click, pass, q("passed t"), all, 4, q("Verified"));
        row("refused click", false, click, refusal, q("failed 1002"), all, 5, q("Expired. Try again."));
        row("refused config", false, config, denial, q("failed 101"), q("switch config"), 5,
            q("Access denied. Try again."));
        row("no JSON", false, outageSwitch, Body("<html>"), q("failed 3840"), q("switch"), 5,
            q("Something went wrong (request failed)"));
        row("no object", false, outageSwitch, Body("[1]"), q("popup"), all, 2, q("Verifying…"));
        // The outage popup looks at the switch once more by itself.
        row("outage", false, outageSwitch, outage, q("popup"), q("switch switch outage get"), 3,
            q("Draw along the curve"));
        row("draw, invisible", true, click, draw, q("popup"), all, 0, QString());
        row("pass, invisible", true, click, pass, q("passed t"), all, 0, QString());
        row("refused config, invisible", true, config, denial, q("failed 101"), q("switch config"), 0,
            QString());
        row("no JSON, invisible", true, outageSwitch, Body("?"), q("failed 3840"), q("switch"), 0, QString());
        row("outage, invisible", true, outageSwitch, outage, q("popup"), q("switch switch outage get"), 0,
            QString());
    }

    void answersDecide()
    {
        QFETCH(bool, isInvisible);
        QFETCH(QString, what);
        QFETCH(QByteArray, body);
        QFETCH(QString, said);
        service().answerBytes(what, body);
        start(isInvisible);
        pass(500ms);
        QTEST(asked().join(u' '), "asked");
        QCOMPARE(outcomes().said(), QStringList{said});
        QCOMPARE(popup() != nullptr, said == q("popup"));
        // Of failures the delegates of invisible mode alone are told.
        QCOMPARE(outcomes().told().size(), said.startsWith(q("passed")) || (isInvisible && !popup()) ? 1 : 0);
        if (isInvisible)
            return;
        QTEST(int(clickManager().button()->clickStatus()), "status");
        QTEST(clickManager().button()->statusText(), "text");
        QTEST(clickManager().button()->accessibleName(), "text");
    }

    void tokensComeWhenTheUserHasSeenIt_data()
    {
        const auto row = addColumns<bool, bool, int>({"isInvisible", "animation", "milliseconds"});
        row("button", false, false, 500);
        row("badge", true, true, 1000);
        row("no badge", true, false, 0);
    }

    void tokensComeWhenTheUserHasSeenIt()
    {
        QFETCH(bool, isInvisible);
        QFETCH(bool, animation);
        QFETCH(int, milliseconds);
        passByClick();
        invisibleManager().setAnimation(animation);
        start(isInvisible);
        settle();
        QCOMPARE(badges().size(), animation ? 1 : 0);
        advance(1ms * milliseconds - 1ms);
        QCOMPARE(outcomes().said().size(), milliseconds > 0 ? 0 : 1);
        advance(1ms);
        QCOMPARE(outcomes().said(), words("passed click-token"));
        QCOMPARE(outcomes().told(), words("click-token"));
        QCOMPARE(badges().size(), 0);
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
        QVClickButton &button = *clickManager().button();
        QPushButton below(&host());
        below.setGeometry(button.geometry());
        below.show();
        below.stackUnder(&button);
        int presses = 0;
        connect(&below, &QPushButton::pressed, this, [&] { ++presses; });
        answerForStatus(status);
        const auto tap = [&] {
            QVPointerInput::click(host(), button.geometry().center());
            settle();
        };
        tap();
        QCOMPARE(int(button.clickStatus()), status);
        QCOMPARE(presses, 0);
        if (QVWindow *const window = popup())
            window->hide();
        forgetAsked();
        tap();
        QCOMPARE(presses, 1);
        QTest::keyClick(&button, Qt::Key_Return);
        QTest::keyClick(&button, Qt::Key_Space);
        button.click();
        settle();
        QCOMPARE(int(button.clickStatus()), status);
        QCOMPARE(asked(), QStringList());
        button.reset();
        tap();
        QCOMPARE(presses, 1);
        QVERIFY(waitFor([this] { return !asked().isEmpty(); }));
    }

    void closedPopupComesBackWithoutARequest_data() { addModes(); }
    void closedPopupComesBackWithoutARequest()
    {
        QFETCH(bool, isInvisible);
        start(isInvisible);
        QVERIFY(waitForPicture());
        const QVWindow *const window = popup();
        pressClose();
        QVERIFY(!popup());
        QCOMPARE(clickManager().button()->clickStatus(), QVClickStatusNormal);
        forgetAsked();
        start(isInvisible);
        QCOMPARE(popup(), window);
        QCOMPARE(clickManager().button()->clickStatus(),
                 isInvisible ? QVClickStatusNormal : QVClickStatusDrawing);
        // On screen already: the same attempt goes on.
        start(isInvisible);
        clickManager().reset();
        invisibleManager().reset();
        settle();
        QCOMPARE(asked(), QStringList());
        QCOMPARE(popupCount(), 0);
        QCOMPARE(outcomes().said(), words("popup, closed User, popup, closed HostReset"));
        QCOMPARE(outcomes().told(), QStringList());
    }

    void aPassAfterTheCloseIsLate_data() { addModes(); }
    void aPassAfterTheCloseIsLate()
    {
        QFETCH(bool, isInvisible);
        start(isInvisible);
        QVERIFY(waitForPicture());
        delay(verify, 200ms);
        strokeAndVerify();
        pressClose();
        pass(2000ms);
        QCOMPARE(outcomes().said(), words("popup, closed User"));
        QCOMPARE(popupCount(), 0);
        forgetAsked();
        start(isInvisible);
        settle();
        QCOMPARE(asked(), words("switch, config, click"));
    }

    void secondStartWhileAskingReplacesThePopup()
    {
        delay(config, 10ms);
        invisibleManager().setAnimation(true);
        invisibleManager().startInsivible();
        invisibleManager().startInsivible();
        QCoreApplication::sendPostedEvents();
        QCOMPARE(badges().size(), 1);
        pass(1100ms);
        QCOMPARE(service().count(click), 2);
        QCOMPARE(outcomes().said(), words("popup, closed Replaced, popup"));
        QCOMPARE(popupCount(), 1);
    }

    void endsOnceInEachPhase_data()
    {
        const auto row = addColumns<bool, QString, QString, QString>({"isInvisible", "held", "end", "said"});
        for (const bool isInvisible : {false, true}) {
            const QByteArray mode = isInvisible ? "invisible, " : "button, ";
            for (const QString &held : {outageSwitch, config, click, picture, q("stroke"), verify}) {
                const QByteArray name = mode + held.toLatin1();
                const bool isOpen = held == picture || held == q("stroke") || held == verify;
                const QString before = isOpen ? q("popup, ") : QString();
                row(name + ", reset", isInvisible, held, q("reset"), before + q("closed HostReset"));
                row(name + ", closed", isInvisible, held, q("close"), before + q("closed WindowGone"));
                row(name + ", window destroyed", isInvisible, held, q("destroy window"),
                    before + q("closed WindowGone"));
                row(name + ", destroyed", isInvisible, held, q("destroy"), before.left(5));
            }
            row(mode + "token, reset", isInvisible, QString(), q("reset"), q("passed click-token"));
            row(mode + "token, window destroyed", isInvisible, QString(), q("destroy window"),
                q("passed click-token"));
            row(mode + "token, destroyed", isInvisible, QString(), q("destroy"), QString());
        }
        row("window refuses", false, config, q("refuse"), q("popup"));
    }

    void endsOnceInEachPhase()
    {
        QFETCH(bool, isInvisible);
        QFETCH(QString, held);
        QFETCH(QString, end);
        if (held.isEmpty())
            passByClick();
        delay(held, 100ms);
        invisibleManager().setAnimation(true);
        start(isInvisible);
        settle();
        if (held == verify) {
            QVERIFY(waitForPicture());
            stroke();
            settle();
        } else if (held == q("stroke")) {
            QVERIFY(waitForPicture());
            QVPointerInput::press(*drawView(), QPoint(100, 100));
            QVPointerInput::move(*drawView(), QPoint(130, 120));
        }
        forgetAsked();
        Refusal refusal;
        if (end == q("reset"))
            isInvisible ? invisibleManager().reset() : clickManager().reset();
        else if (end == q("destroy"))
            destroy(isInvisible);
        else if (end == q("destroy window"))
            destroyHost();
        else if (end == q("refuse"))
            host().installEventFilter(&refusal);
        // The host is in its destructor when the button goes: it must not be called from there.
        QVERIFY(end != q("destroy window") || !outcomes().said().join(u' ').contains(q("closed")));
        if (end == q("close") || end == q("refuse"))
            QCOMPARE(host().close(), end == q("close"));
        pass(1200ms);
        QTEST(outcomes().said().join(q(", ")), "said");
        // A button tells its manager alone.
        QCOMPARE(outcomes().told().size(), held.isEmpty() && (isInvisible || end != q("destroy")) ? 1 : 0);
        if (end == q("refuse"))
            return;
        QCOMPARE(asked(), QStringList());
        QCOMPARE(popupCount() + badges().size(), 0);
    }

    void badgeSitsInTheMiddleOfTheActiveWindow()
    {
        QWidget other;
        showActive(other);
        showActive(host());
        delay(outageSwitch, 1h);
        invisibleManager().setAnimation(true);
        invisibleManager().startInsivible();
        QCoreApplication::sendPostedEvents();
        const QVInvisibleAnimationView *const badge = badges().value(0);
        QCOMPARE(badge->parentWidget(), &host());
        QCOMPARE(badge->frame().center(), QPoint(349, 299));
        host().resize(500, 400);
        QCOMPARE(badge->frame().center(), QPoint(249, 199));
        QVERIFY(host().childAt(250, 200) != badge);
    }

    void invisibleModeNeedsNoWindow()
    {
        destroyHost();
        invisibleManager().setAnimation(true);
        invisibleManager().startInsivible();
        QCoreApplication::sendPostedEvents();
        QCOMPARE(badges().size(), 1);
        QVERIFY(badges().constFirst()->isWindow());
        QVERIFY(waitForPicture());
        QVERIFY(popup()->isWindow());
        QCOMPARE(badges().size(), 0);
    }

    void aManagerOwnsItsButtonUntilItHasAParent()
    {
        QVClickManager manager;
        QPointer<QVClickButton> button = manager.button();
        QCOMPARE(manager.clickButton(), button.data());
        button->setParent(&host());
        destroyHost();
        QVERIFY(!button);
        {
            QVClickManager other;
            button = other.button();
            QVERIFY(button);
        }
        QVERIFY(!button);
    }

private:
    static void addModes()
    {
        const auto row = addColumns<bool>({"isInvisible"});
        row("button", false);
        row("invisible", true);
    }

    static QList<QVInvisibleAnimationView *> badges()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QList<QVInvisibleAnimationView *> found;
        for (QWidget *widget : QApplication::allWidgets()) {
            if (auto *const badge = qobject_cast<QVInvisibleAnimationView *>(widget))
                found.append(badge);
        }
        return found;
    }
};

QV_TEST(TestAttempts)
#include "TestAttempts.moc"
