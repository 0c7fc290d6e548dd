#pragma once

#include <QObject>
#include <QPointF>
#include <QPointer>

#include <functional>
#include <vector>

class QMouseEvent;
class QPointingDevice;
class QTabletEvent;
class QTouchEvent;
class QWidget;

/// Recognises a drag of one finger, pen or left mouse button on a widget, from wherever in it and
/// over whatever else is in it; also one that somebody steers.
///
/// A drag begins once the pointer is as far from where it was pressed as a trace's points have to be
/// from each other. The first position told is the press itself. So a tap is no drag, and no part of
/// a drag that would count is lost. While one pointer is followed, all others are ignored.
class QVPanGestureRecognizer final : public QObject
{
public:
    enum class State { Possible = 0, Began = 1, Changed = 2, Ended = 3, Cancelled = 4, Failed = 5 };
    using Action = std::function<void(State state)>;
    using ShouldBegin = std::function<bool(QPointF location)>;

    /// Must not outlive \a view.
    explicit QVPanGestureRecognizer(QWidget *view);

    void setAction(Action action) { m_action = std::move(action); }
    void setShouldBegin(ShouldBegin shouldBegin) { m_shouldBegin = std::move(shouldBegin); }
    /// Lets a drag start on a control too; the control then takes it for a press that left it.
    void addControl(QWidget *control);

    [[nodiscard]] bool isEnabled() const { return m_isEnabled; }
    /// Disabling cancels the drag under way, which does not start again on enabling.
    void setEnabled(bool enabled);

    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] bool isDragging() const { return m_state == State::Began || m_state == State::Changed; }
    /// Where the pointer is, in the view's coordinates.
    [[nodiscard]] QPointF location() const { return m_location; }

    /// A drag without events of a pointer's own, heard like the others: the press, the moves and the
    /// release, in the view's coordinates. Moves and releases without a press do nothing.
    void steerDown(QPointF location);
    void steerTo(QPointF location);
    void steerUp();
    [[nodiscard]] bool isSteered() const { return m_pointer == Pointer::Steered; }
    /// Cancels whatever drag is under way.
    void discard() { cancel(); }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum class Pointer { None, Mouse, Touch, Pen, Steered };

    bool handleMouse(QWidget *receiver, const QMouseEvent &event);
    void pressMouse(QWidget *control, QPointF location);
    void followMouse(Qt::MouseButtons buttons, QPointF location);
    bool handleTouch(QWidget *receiver, QTouchEvent &event);
    bool pressTouch(QWidget *receiver, const QTouchEvent &event);
    bool handlePen(const QTabletEvent &event);
    void followTouch(const QTouchEvent &event);

    [[nodiscard]] bool takesPresses() const;
    void press(Pointer pointer, QPointF location);
    void move(QPointF location);
    void begin(QPointF location);
    void release(QPointF location);
    void cancel();
    void finish(State state);
    void tell(State state);

    [[nodiscard]] bool isOverControl(QPointF location) const;
    void takeFromControl();

    QWidget *m_view;
    std::vector<QPointer<QWidget>> m_controls;
    Action m_action;
    ShouldBegin m_shouldBegin;
    bool m_isEnabled = true;
    State m_state = State::Possible;
    QPointF m_location;
    QPointF m_pressLocation;
    Pointer m_pointer = Pointer::None;
    const QPointingDevice *m_touchDevice = nullptr;
    int m_touchId = 0;
    /// The control on which the pointer was pressed, until it is told that the press has left it.
    QPointer<QWidget> m_pressedControl;
    bool m_isTakingFromControl = false;
};
