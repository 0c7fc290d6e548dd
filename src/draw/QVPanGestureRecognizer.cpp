#include "draw/QVPanGestureRecognizer.h"

#include "flow/QVRenderTrace.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QTabletEvent>
#include <QTouchEvent>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace {

/// Tells \a control that the mouse is outside it.
void sendMouse(QWidget *control, QEvent::Type type, Qt::MouseButtons buttons)
{
    const QPointF outside(-1, -1);
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, outside, control->mapToGlobal(outside), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(control, &event);
}

} // namespace

QVPanGestureRecognizer::QVPanGestureRecognizer(QWidget *view)
    : m_view(view)
{
    view->setAttribute(Qt::WA_AcceptTouchEvents);
    // Moves without a button tell that a release was lost.
    view->setMouseTracking(true);
    view->installEventFilter(this);
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state != Qt::ApplicationActive)
            cancel();
    });
}

void QVPanGestureRecognizer::addControl(QWidget *control)
{
    m_controls.emplace_back(control);
    control->installEventFilter(this);
}

void QVPanGestureRecognizer::setEnabled(bool enabled)
{
    m_isEnabled = enabled;
    if (!enabled)
        cancel();
}

void QVPanGestureRecognizer::steerDown(QPointF location)
{
    press(Pointer::Steered, location);
}

void QVPanGestureRecognizer::steerTo(QPointF location)
{
    if (isSteered())
        move(location);
}

void QVPanGestureRecognizer::steerUp()
{
    if (isSteered())
        release(m_location);
}

bool QVPanGestureRecognizer::eventFilter(QObject *watched, QEvent *event)
{
    auto *receiver = static_cast<QWidget *>(watched);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return handleMouse(receiver, *static_cast<QMouseEvent *>(event));
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        return handleTouch(receiver, *static_cast<QTouchEvent *>(event));
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
        return receiver == m_view && handlePen(*static_cast<QTabletEvent *>(event));
    case QEvent::EnabledChange:
        if (!m_view->isEnabled())
            cancel();
        return false;
    case QEvent::TouchCancel:
        if (!m_isTakingFromControl)
            cancel();
        return false;
    case QEvent::UngrabMouse:
    case QEvent::Hide:
    case QEvent::WindowBlocked:
    case QEvent::WindowDeactivate:
        if (receiver == m_view)
            cancel();
        return false;
    default:
        return false;
    }
}

bool QVPanGestureRecognizer::handleMouse(QWidget *receiver, const QMouseEvent &event)
{
    const bool isOnControl = receiver != m_view;
    if (m_isTakingFromControl)
        return !isOnControl;
    const QPointF location = isOnControl ? receiver->mapTo(m_view, event.position()) : event.position();
    const bool wasDragging = isDragging();
    const bool wasFollowed = m_pointer == Pointer::Mouse;
    if (event.type() == QEvent::MouseMove)
        followMouse(event.buttons(), location);
    else if (event.button() != Qt::LeftButton)
        return wasDragging;
    else if (event.type() != QEvent::MouseButtonRelease)
        pressMouse(isOnControl ? receiver : nullptr, location);
    else if (wasFollowed)
        release(location);
    // Until it is a drag, a press on a control is the control's too.
    return isOnControl ? wasDragging || isDragging() : wasFollowed || m_pointer == Pointer::Mouse;
}

void QVPanGestureRecognizer::pressMouse(QWidget *control, QPointF location)
{
    press(Pointer::Mouse, location);
    m_pressedControl = control;
}

void QVPanGestureRecognizer::followMouse(Qt::MouseButtons buttons, QPointF location)
{
    if (m_pointer != Pointer::Mouse)
        return;
    // A move without the button means that the release went elsewhere.
    if (buttons & Qt::LeftButton)
        move(location);
    else
        cancel();
}

bool QVPanGestureRecognizer::handleTouch(QWidget *receiver, QTouchEvent &event)
{
    const bool isOnControl = receiver != m_view;
    const bool wasDragging = isDragging();
    if (m_pointer == Pointer::Touch)
        followTouch(event);
    if (event.type() != QEvent::TouchBegin)
        return isOnControl ? wasDragging || isDragging() : true;
    if (m_pointer == Pointer::None)
        return pressTouch(receiver, event);
    // Ignored by the control, a second finger comes to the view, which does nothing about it.
    if (isOnControl && isDragging())
        event.ignore();
    return !isOnControl || isDragging();
}

bool QVPanGestureRecognizer::pressTouch(QWidget *receiver, const QTouchEvent &event)
{
    const bool isOnControl = receiver != m_view;
    const QEventPoint &point = event.points().constFirst();
    const QPointF location = m_view->mapFromGlobal(point.globalPosition());
    // A control that takes no touches gets this one as a mouse press if the view leaves it alone.
    if (!takesPresses() || (!isOnControl && isOverControl(location)))
        return false;
    m_touchDevice = event.pointingDevice();
    m_touchId = point.id();
    press(Pointer::Touch, location);
    m_pressedControl = isOnControl ? receiver : nullptr;
    return !isOnControl;
}

void QVPanGestureRecognizer::followTouch(const QTouchEvent &event)
{
    const auto &points = event.points();
    const auto found = std::ranges::find(points, m_touchId, &QEventPoint::id);
    // Another finger may be told of alone.
    if (event.device() != m_touchDevice || found == points.end())
        return;
    const QPointF location = m_view->mapFromGlobal(found->globalPosition());
    if (found->state() == QEventPoint::Updated)
        move(location);
    else if (found->state() == QEventPoint::Released)
        release(location);
    else if (found->state() == QEventPoint::Pressed)
        cancel();
}

bool QVPanGestureRecognizer::handlePen(const QTabletEvent &event)
{
    if (event.type() == QEvent::TabletPress) {
        if (!takesPresses() || event.button() != Qt::LeftButton || isOverControl(event.position()))
            return false;
        press(Pointer::Pen, event.position());
        return true;
    }
    if (m_pointer != Pointer::Pen)
        return false;
    if (event.type() == QEvent::TabletMove)
        move(event.position());
    else if (event.button() == Qt::LeftButton)
        release(event.position());
    return true;
}

bool QVPanGestureRecognizer::takesPresses() const
{
    return m_isEnabled && m_view->isEnabled();
}

void QVPanGestureRecognizer::press(Pointer pointer, QPointF location)
{
    // A second press of the same pointer: its release was lost.
    if (m_pointer == pointer)
        cancel();
    if (!takesPresses() || m_pointer != Pointer::None)
        return;
    m_pointer = pointer;
    m_pressLocation = location;
    m_location = location;
}

void QVPanGestureRecognizer::move(QPointF location)
{
    if (isDragging()) {
        m_location = location;
        tell(State::Changed);
        return;
    }
    const QPointF way = location - m_pressLocation;
    if (std::max(std::abs(way.x()), std::abs(way.y())) >= QVRenderTrace::screeningDistance)
        begin(location);
}

void QVPanGestureRecognizer::begin(QPointF location)
{
    if (m_shouldBegin && !m_shouldBegin(m_pressLocation)) {
        m_pointer = Pointer::None;
        return;
    }
    takeFromControl();
    m_location = m_pressLocation;
    tell(State::Began);
    if (!isDragging())
        return;
    m_location = location;
    tell(State::Changed);
}

void QVPanGestureRecognizer::release(QPointF location)
{
    m_location = location;
    finish(State::Ended);
}

void QVPanGestureRecognizer::cancel()
{
    finish(State::Cancelled);
}

void QVPanGestureRecognizer::finish(State state)
{
    m_pointer = Pointer::None;
    m_pressedControl.clear();
    if (!isDragging())
        return;
    tell(state);
    m_state = State::Possible;
}

void QVPanGestureRecognizer::tell(State state)
{
    m_state = state;
    if (m_action)
        m_action(state);
}

bool QVPanGestureRecognizer::isOverControl(QPointF location) const
{
    const QWidget *child = m_view->childAt(location.toPoint());
    return child && std::ranges::find(m_controls, child) != m_controls.end();
}

void QVPanGestureRecognizer::takeFromControl()
{
    QWidget *control = m_pressedControl;
    m_pressedControl.clear();
    if (!control)
        return;
    m_isTakingFromControl = true;
    if (m_pointer == Pointer::Touch) {
        QTouchEvent cancelled(QEvent::TouchCancel, m_touchDevice);
        QCoreApplication::sendEvent(control, &cancelled);
    } else {
        sendMouse(control, QEvent::MouseMove, Qt::LeftButton);
        sendMouse(control, QEvent::MouseButtonRelease, Qt::NoButton);
    }
    m_isTakingFromControl = false;
}
