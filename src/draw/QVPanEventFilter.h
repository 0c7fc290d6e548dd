#pragma once

#include "flow/QVPickedUpPen.h"

#include <QObject>
#include <QPointer>

#include <vector>

class QMouseEvent;
class QPointingDevice;
class QTabletEvent;
class QTouchEvent;
class QWidget;

/// Passes the pointer events of a widget and its children to a recogniser.
class QVPanEventFilter final : public QObject
{
public:
    /// \a view and \a recognizer must outlive this.
    QVPanEventFilter(QWidget *view, QVPanGestureRecognizer &recognizer);

    /// Lets a drag start on a control, too. To the control this looks like a press that has left it.
    void addControl(QWidget *control);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using Pointer = QVPanGestureRecognizer::Pointer;

    bool handleMouse(QWidget *receiver, const QMouseEvent &event);
    /// Whether a click picks the pen up or puts it down.
    [[nodiscard]] bool takesClick(QWidget *receiver, const QMouseEvent &event);
    bool handleTouch(QWidget *receiver, QTouchEvent &event);
    bool pressTouch(QWidget *receiver, const QTouchEvent &event);
    bool handlePen(const QTabletEvent &event);
    void followTouch(const QTouchEvent &event);

    [[nodiscard]] bool takesPresses() const;
    void press(Pointer pointer, QWidget *control, QPointF location);
    void move(Pointer pointer, QPointF location);
    [[nodiscard]] bool isOverControl(QPointF location) const;
    void takeFromControl(Pointer pointer);

    QWidget *m_view;
    QVPanGestureRecognizer &m_recognizer;
    std::vector<QPointer<QWidget>> m_controls;
    const QPointingDevice *m_touchDevice = nullptr;
    int m_touchId = 0;
    /// The control on which the pointer was pressed, until the control receives that the press has left it.
    QPointer<QWidget> m_pressedControl;
    bool m_isTakingFromControl = false;
    QVPickedUpPen m_pickedUpPen;
};
