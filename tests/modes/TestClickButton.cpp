#include "modes/ModesTestCase.h"
#include "popup/QVWindow.h"
#include "support/QVPixels.h"
#include "support/QVPointerInput.h"
#include "views/QVLabel.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QPushButton>
#include <QToolTip>

using namespace std::chrono_literals;

/// The button under the user's hands.
class TestClickButton : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void takesInput_data()
    {
        addColumns<QString, QString>({"steps", "said"});
        const auto row = [](const char *steps, const char *said) {
            QTest::newRow(steps) << q(steps) << q(said);
        };
        row("finger", "[1], [2]");
        row("screen-reader", "[2]");
        row("return", "[1], [2]");
        row("press", "[1]");
        row("right-press", "");
        row("press, out", "[1], [0]");
        row("press, lift-out", "[1], [0]");
        row("press, lift", "[1], [2]");
        row("press, out, in, lift", "[1], [0], [1], [2]");
        row("press, hide, show, lift", "[1], [0]");
        row("press, disable, enable, lift", "[1], [0]");
        row("press, focus-elsewhere, lift", "[1], [0]");
        row("press, escape, lift", "[1], [0]");
        row("lift", "");
        row("space-down", "[1]");
        row("space-down, space-up", "[1], [2]");
        row("space-down, escape, space-up", "[1], [0]");
        row("space-up", "");
        row("disable, press, lift", "");
        row("disable, finger", "");
        row("when [1]: reset, return", "[1], [0]");
        row("when [1]: disable, return", "[1], [0]");
        row("answer config 0101, start, wait 0, press, lift", "[2], [5], failed 101, [1], [2]");
        // Only the finger that pressed counts.
        row("two-fingers", "[1], [0]");
        // A busy button lets presses through to what lies below it, once no popup takes them.
        const char *const tries = "hide-popup, forget, return, space-down, space-up, start, press, lift, "
                                  "asked, reset, press";
        const auto busy = [&](const char *steps, const char *said) {
            QTest::newRow(steps) << q(steps) + q(", ") + q(tries) << q(said);
        };
        busy("hold switch 9000, start, wait 0", "[2], below, asked, [0], closed HostReset, [1]");
        busy("outage, start, wait 100, press, lift",
             "[2], [3], popup, outage, below, asked, [0], closed HostReset, [1]");
        busy("pass, start, wait 0", "[2], [4], below, asked, [0], [1]");
    }

    void takesInput()
    {
        QFETCH(QString, steps);
        QVClickButton &button = *clickManager().button();
        QPushButton below(&host());
        below.setGeometry(button.geometry());
        below.show();
        below.stackUnder(&button);
        connect(&below, &QPushButton::pressed, this, [this] { outcomes().add(q("below")); });
        button.setFocus();
        defineInput(button);
        defineKeys(button);
        go(steps);
        advance(0ms);
        QTEST(outcomes().said().join(q(", ")), "said");
    }

    void fitsLongTexts()
    {
        QVClickButton &button = *clickManager().button();
        auto *const label = button.findChild<QVLabel *>();
        const auto showsToolTip = [&](int words) {
            label->setText(q("<b>a</b>long ").repeated(words).trimmed());
            QHelpEvent event(QEvent::ToolTip, QPoint(60, 10), button.mapToGlobal(QPoint(60, 10)));
            QCoreApplication::sendEvent(&button, &event);
            return QToolTip::isVisible();
        };
        QVERIFY(!showsToolTip(4) && !label->isElided());
        QVERIFY(showsToolTip(40) && label->isElided());
        button.resize(290, 44);
        QCOMPARE(button.accessibleDescription(), label->text());
        button.resize(5000, 44);
        QCOMPARE(button.accessibleDescription(), QString());
        QVERIFY(QToolTip::text().contains(q("&lt;b&gt;")));
        QToolTip::hideText();
    }

    void showsFocusThatCameByKeyboard()
    {
        QVClickButton &button = *clickManager().button();
        const QImage before = pixelsOf(button);
        for (const auto reason : {Qt::MouseFocusReason, Qt::TabFocusReason}) {
            const bool isShown = reason == Qt::TabFocusReason;
            host().setAttribute(Qt::WA_KeyboardFocusChange, isShown);
            button.setFocus(reason);
            QCOMPARE(pixelsOf(button) != before, isShown);
            // The popup borrows the focus; what the user sees afterwards is what was seen before.
            button.clearFocus();
            button.setFocus(Qt::PopupFocusReason);
            QCOMPARE(pixelsOf(button) != before, isShown);
            button.clearFocus();
        }
    }

private:
    void defineInput(QVClickButton &button)
    {
        const QPoint in(20, 20);
        const QPoint out(-20, 20);
        addStep("press", [&, in](auto) { QVPointerInput::press(button, in); });
        addStep("right-press", [&, in](auto) { QVPointerInput::press(button, in, Qt::RightButton); });
        addStep("in", [&, in](auto) { QVPointerInput::move(button, in); });
        addStep("out", [&, out](auto) { QVPointerInput::move(button, out); });
        addStep("lift", [&, in](auto) { QVPointerInput::release(button, in); });
        addStep("lift-out", [&, out](auto) { QVPointerInput::release(button, out); });
        addStep("finger", [&, in](auto) {
            QVPointerInput::strokeWithFinger(button, {in, in + QPoint(2, 0)});
        });
        addStep("two-fingers", [&](auto) {
            const auto touches = [this] {
                return QTest::touchEvent(host().windowHandle(), QVPointerInput::touchScreen());
            };
            touches().press(0, {120, 120});
            touches().stationary(0).press(1, {130, 120});
            touches().move(0, {20, 300}).stationary(1);
            touches().release(0, {20, 300}).stationary(1);
            touches().release(1, {130, 120});
        });
        addStep("hide-popup", [](auto) {
            if (popup())
                popup()->hide();
        });
        addStep("hide", [&](auto) { button.hide(); });
        addStep("show", [&](auto) { button.show(); });
        addStep("disable", [&](auto) { button.setEnabled(false); });
        addStep("enable", [&](auto) { button.setEnabled(true); });
    }

    void defineKeys(QVClickButton &button)
    {
        addStep("return", [&](auto) { QTest::keyClick(&button, Qt::Key_Return); });
        addStep("space-down", [&](auto) { QTest::keyPress(&button, Qt::Key_Space); });
        addStep("space-up", [&](auto) { QTest::keyRelease(&button, Qt::Key_Space); });
        addStep("escape", [&](auto) { QTest::keyPress(&button, Qt::Key_Escape); });
        addStep("focus-elsewhere", [this](auto) { host().setFocus(); });
        addStep("screen-reader", [&](auto) {
            auto *const seen = QAccessible::queryAccessibleInterface(&button);
            seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
            QVERIFY(waitFor([&] { return button.clickStatus() == QVClickStatusVerifying; }));
        });
    }
};

QV_TEST(TestClickButton)
#include "TestClickButton.moc"
