#include "support/QVPointerInput.h"
#include "support/QVTestCase.h"
#include "views/QVTouchButton.h"

#include <QSignalSpy>

namespace {

class Button : public QVTouchButton
{
public:
    using QVTouchButton::QVTouchButton;

protected:
    void paintEvent(QPaintEvent *) override {}
};

} // namespace

/// A finger on a button: what of it counts as a click.
class TestTouchButton : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aTouchIsAClick_data()
    {
        const auto row = addColumns<QString, int>({"steps", "clicks"});
        row("tap", q("press lift"), 1);
        row("two taps", q("press lift press lift"), 2);
        row("left and back", q("press out in lift"), 1);
        row("left", q("press out lift-out"), 0);
        row("hidden", q("press hide show in lift"), 0);
        row("hidden, then a tap", q("press hide show lift press lift"), 1);
        row("disabled", q("press disable in lift"), 0);
        row("disabled for a while", q("press disable enable in lift"), 1);
    }

    void aTouchIsAClick()
    {
        QFETCH(QString, steps);
        QFETCH(int, clicks);
        QWidget window;
        window.resize(300, 200);
        Button button(&window);
        button.setGeometry(20, 20, 100, 40);
        window.show();
        const QSignalSpy clicked(&button, &QAbstractButton::clicked);
        for (const QString &step : steps.split(u' '))
            perform(step, button);
        QCOMPARE(clicked.size(), clicks);
        QVERIFY(!button.isDown());
    }

private:
    static void perform(const QString &step, Button &button)
    {
        auto touch = QTest::touchEvent(button.window(), QVPointerInput::touchScreen());
        const QPoint inside(50, 30);
        const QPoint outside(200, 150);
        if (step == QLatin1String("press"))
            touch.press(0, inside, button.window());
        else if (step == QLatin1String("in"))
            touch.move(0, inside, button.window());
        else if (step == QLatin1String("out"))
            touch.move(0, outside, button.window());
        else if (step == QLatin1String("lift"))
            touch.release(0, inside, button.window());
        else if (step == QLatin1String("lift-out"))
            touch.release(0, outside, button.window());
        else if (step == QLatin1String("hide") || step == QLatin1String("show"))
            button.setVisible(step == QLatin1String("show"));
        else
            button.setEnabled(step == QLatin1String("enable"));
    }
};

QV_TEST(TestTouchButton)
#include "TestTouchButton.moc"
