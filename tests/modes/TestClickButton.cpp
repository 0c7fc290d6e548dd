#include "conversations/Conversations.h"
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
        Conversations::addInput();
        const auto row = [](const char *steps, const char *said) {
            Conversations::row(steps, "click", QByteArray("focus, ") + steps + ", wait 1", said);
        };
        row("hold switch 9000, screen-reader", "[2]");
        row("right-press", "");
        row("press, lift-out", "[1], [0]");
        row("press, escape, lift", "[1], [0]");
        row("space-down, escape, space-up", "[1], [0]");
        // Only the finger that pressed counts.
        row("two-fingers", "[1], [0]");
        // A busy button lets presses through to what lies below it, once no popup takes them.
        const char *const tries = "hide-popup, forget, return, space-down, space-up, start, press, lift, "
                                  "asked, reset, press";
        const auto busy = [&](const QByteArray &steps, const char *said) {
            row(steps + ", " + tries, said);
        };
        busy("hold switch 9000, start, wait 0", "[2], below, asked, [0], closed HostReset, [1]");
        busy("outage, start, wait 100, press, lift",
             "[2], [3], popup, outage, below, asked, [0], closed HostReset, [1]");
        busy("pass, start, wait 0", "[2], [4], below, asked, [0], [1]");
    }

    void takesInput() { converse(); }

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
        button.resize(90, 44);
        go(q("hold switch 9000, start, wait 0"));
        QCOMPARE(button.accessibleDescription(), q("Verifying…"));
        QToolTip::hideText();
    }

private:
    void prepare() override
    {
        ModesTestCase::prepare();
        QVClickButton &button = *clickManager().button();
        m_below = std::make_unique<QPushButton>(&host());
        m_below->setGeometry(button.geometry());
        m_below->show();
        m_below->stackUnder(&button);
        connect(m_below.get(), &QPushButton::pressed, this, [this] { outcomes().add(q("below")); });
        defineInput(button);
        defineKeys(button);
    }

    void finish() override
    {
        m_below.reset();
        ModesTestCase::finish();
    }

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
        addStep("finger", [&, in](auto) { QVPointerInput::tap(button, in); });
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
        addStep("focus", [&](auto) { button.setFocus(); });
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

    std::unique_ptr<QPushButton> m_below;
};

QV_TEST(TestClickButton)
#include "TestClickButton.moc"
