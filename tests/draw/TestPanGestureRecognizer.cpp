#include "draw/QVPanEventFilter.h"
#include "support/QVPointerInput.h"
#include "support/QVTestCase.h"
#include "views/QVCustomActionButton.h"

#include <QMouseEvent>
#include <QPushButton>
#include <QWindow>

#include <optional>

using State = QVPanGestureRecognizer::State;

namespace {

/// A widget with a plain child and controls, which keeps what its recogniser tells.
class Pad : public QWidget
{
public:
    explicit Pad(QWidget *parent = nullptr)
        : QWidget(parent)
        , picture(this)
        , button(this)
        , touchButton(this)
        , events(this, recognizer)
    {
        resize(300, 200);
        picture.setGeometry(0, 0, 300, 150);
        button.setGeometry(250, 0, 30, 30);
        touchButton.setGeometry(200, 0, 30, 30);
        events.addControl(&button);
        events.addControl(&touchButton);
        recognizer.setAction([this](State state, QPointF location) {
            states.append(static_cast<int>(state));
            locations.append(location);
            if (state == cancelOn)
                recognizer.cancel();
        });
        connect(&button, &QPushButton::clicked, this, [this] { ++clicks; });
        connect(&touchButton, &QPushButton::clicked, this, [this] { ++clicks; });
    }

    QWidget picture;
    QPushButton button;
    QVCustomActionButton touchButton;
    QVPanGestureRecognizer recognizer;
    QVPanEventFilter events;
    QList<int> states;
    QList<QPointF> locations;
    int clicks = 0;
    std::optional<State> cancelOn;
};

using Stroke = void (*)(QWidget &, const QVPointerInput::Points &, const QVPointerInput::Pause &);

} // namespace

Q_DECLARE_METATYPE(Stroke)
Q_DECLARE_METATYPE(std::function<void(Pad &)>)

class TestPanGestureRecognizer : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void followsEachPointerOverChildren_data()
    {
        const auto row = addColumns<Stroke>({"stroke"});
        row("mouse", Stroke(QVPointerInput::strokeWithMouse));
        row("finger", Stroke(QVPointerInput::strokeWithFinger));
        row("pen", Stroke(QVPointerInput::strokeWithPen));
    }

    void followsEachPointerOverChildren()
    {
        QFETCH(Stroke, stroke);
        stroke(*m_pad, {{50, 60}, {52, 60}, {60, 70}, {80, 160}}, {});
        QCOMPARE(m_pad->states, QList<int>({1, 2, 2, 3}));
        QCOMPARE(m_pad->locations, QList<QPointF>({{50, 60}, {60, 70}, {80, 160}, {80, 160}}));
        QCOMPARE(m_pad->recognizer.state(), State::Possible);
        m_pad->setEnabled(false);
        stroke(*m_pad, {{50, 60}, {60, 70}, {80, 160}}, {});
        QCOMPARE(m_pad->states.size(), 4);
    }

    void fingersDoNotClickWhatIsDisabledOrHidden()
    {
        m_pad->touchButton.setEnabled(false);
        QVPointerInput::strokeWithFinger(*m_pad, {{210, 10}, {211, 10}});
        m_pad->touchButton.setEnabled(true);
        QVPointerInput::strokeWithFinger(*m_pad, {{210, 10}, {211, 10}},
                                         [this] { m_pad->touchButton.hide(); });
        QCOMPARE(m_pad->clicks, 0);
    }

    void aTapIsNoDrag()
    {
        QVPointerInput::strokeWithMouse(*m_pad, {{50, 60}, {54, 56}});
        QVPointerInput::strokeWithFinger(*m_pad, {{50, 60}, {46, 64}});
        QVPointerInput::strokeWithMouse(*m_pad, {{260, 10}, {264, 10}});
        QCOMPARE(m_pad->states, QList<int>());
        QCOMPARE(m_pad->clicks, 1);
    }

    void aDragMayStartOnAControlWhichThenIsNotClicked_data()
    {
        const auto row = addColumns<Stroke, QPoint>({"stroke", "control"});
        const QPoint plain(260, 10);
        const QPoint touchable(210, 10);
        row("mouse", Stroke(QVPointerInput::strokeWithMouse), plain);
        row("finger, touchable control", Stroke(QVPointerInput::strokeWithFinger), touchable);
    }

    void aDragMayStartOnAControlWhichThenIsNotClicked()
    {
        QFETCH(Stroke, stroke);
        QFETCH(QPoint, control);
        stroke(*m_pad, {control, control + QPoint(1, 0)}, {});
        QCOMPARE(m_pad->states, QList<int>());
        QCOMPARE(m_pad->clicks, 1);
        stroke(*m_pad, {control, control - QPoint(40, 0), control}, {});
        QCOMPARE(m_pad->states, QList<int>({1, 2, 2, 3}));
        QCOMPARE(m_pad->locations.first(), QPointF(control));
        QCOMPARE(m_pad->clicks, 1);
        QVERIFY(!m_pad->button.isDown() && !m_pad->touchButton.isDown());
    }

    void otherButtonsAreNoPointers()
    {
        QVPointerInput::press(*m_pad, {50, 60}, Qt::RightButton);
        QVPointerInput::move(*m_pad, {90, 60});
        QVPointerInput::release(*m_pad, {90, 60}, Qt::RightButton);
        QCOMPARE(m_pad->states, QList<int>());
        QVPointerInput::press(*m_pad, {50, 60});
        QVPointerInput::move(*m_pad, {90, 60});
        QVPointerInput::press(*m_pad, {90, 60}, Qt::RightButton);
        QVPointerInput::release(*m_pad, {90, 60}, Qt::RightButton);
        QVERIFY(m_pad->recognizer.isDragging());
        QVPointerInput::release(*m_pad, {90, 60});
        QCOMPARE(m_pad->states, QList<int>({1, 2, 3}));
    }

    void aSecondFingerChangesNothing_data()
    {
        const auto row = addColumns<QPoint>({"second"});
        row("on the same child", QPoint(200, 100));
        row("on a touchable control", QPoint(210, 20));
    }

    void aSecondFingerChangesNothing()
    {
        QFETCH(QPoint, second);
        const auto touch = [this] {
            return QTest::touchEvent(m_pad->windowHandle(), QVPointerInput::touchScreen());
        };
        touch().press(0, QPoint(50, 60));
        touch().move(0, QPoint(70, 60));
        touch().stationary(0).press(1, second);
        touch().move(0, QPoint(80, 60)).move(1, second + QPoint(0, -8));
        touch().stationary(0).release(1, second);
        touch().move(0, QPoint(90, 60));
        touch().release(0, QPoint(90, 60));
        QCOMPARE(m_pad->states, QList<int>({1, 2, 2, 2, 3}));
        QCOMPARE(m_pad->locations.last(), QPointF(90, 60));
        QCOMPARE(m_pad->clicks, 0);
        QVPointerInput::strokeWithFinger(*m_pad, {{50, 60}, {70, 60}});
        QCOMPARE(m_pad->states.size(), 8);
    }

    void isCancelled_data()
    {
        QTest::addColumn<std::function<void(Pad &)>>("disturb");
        const auto row = [](const char *name, const std::function<void(Pad &)> &disturb) {
            QTest::newRow(name) << disturb;
        };
        row("by hiding", [](Pad &pad) { pad.hide(); });
        row("by disabling the recogniser", [](Pad &pad) { pad.recognizer.setEnabled(false); });
        row("by a lost grab", [](Pad &pad) {
            QMouseEvent move(QEvent::MouseMove, QPointF(80, 80), QPointF(80, 80), Qt::NoButton, Qt::NoButton,
                             Qt::NoModifier);
            QCoreApplication::sendEvent(&pad, &move);
        });
        row("by a press without a release", [](Pad &pad) { QVPointerInput::press(pad, {10, 10}); });
        row("by a modal window", [](Pad &pad) {
            QWidget dialog;
            dialog.setWindowModality(Qt::ApplicationModal);
            dialog.show();
            QVERIFY(!pad.recognizer.isDragging());
        });
    }

    void isCancelled()
    {
        QFETCH(std::function<void(Pad &)>, disturb);
        QVPointerInput::press(*m_pad, {50, 60});
        QVPointerInput::move(*m_pad, {90, 60});
        QCOMPARE(m_pad->states, QList<int>({1, 2}));
        disturb(*m_pad);
        QCOMPARE(m_pad->states, QList<int>({1, 2, 4}));
        QCOMPARE(m_pad->recognizer.state(), State::Possible);
    }

    void aCancelledTouchIsCancelled()
    {
        QTest::touchEvent(m_pad->windowHandle(), QVPointerInput::touchScreen()).press(0, QPoint(50, 60));
        QTest::touchEvent(m_pad->windowHandle(), QVPointerInput::touchScreen()).move(0, QPoint(70, 60));
        QTouchEvent cancel(QEvent::TouchCancel, QVPointerInput::touchScreen());
        QCoreApplication::sendEvent(m_pad->windowHandle(), &cancel);
        QCOMPARE(m_pad->states, QList<int>({1, 2, 4}));
    }

    void canBeCancelledFromItsOwnAction()
    {
        m_pad->cancelOn = State::Began;
        QVPointerInput::strokeWithMouse(*m_pad, {{50, 60}, {70, 60}, {90, 60}});
        // Enabled again, yet the rest of the same press starts nothing.
        QCOMPARE(m_pad->states, QList<int>({1, 4}));
    }

private:
    void prepare() override
    {
        m_pad = std::make_unique<Pad>();
        m_pad->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_pad.get()));
    }
    void finish() override { m_pad.reset(); }

    std::unique_ptr<Pad> m_pad;
};

QV_TEST(TestPanGestureRecognizer)
#include "TestPanGestureRecognizer.moc"
