#include "draw/QVPanEventFilter.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QTabletEvent>
#include <QTouchEvent>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace {

void releaseOutside(QWidget *control)
{
    const QPointF outside(-1, -1);
    QMouseEvent event(QEvent::MouseButtonRelease, outside, control->mapToGlobal(outside), Qt::LeftButton,
                      Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(control, &event);
}

} // namespace

QVPanEventFilter::QVPanEventFilter(QWidget *view, QVPanGestureRecognizer &recognizer)
    : m_view(view)
    , m_recognizer(recognizer)
    , m_pickedUpPen(recognizer)
{
    view->setAttribute(Qt::WA_AcceptTouchEvents);
    // A move without a pressed button shows that a release was lost.
    view->setMouseTracking(true);
    view->installEventFilter(this);
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state != Qt::ApplicationActive)
            m_recognizer.cancel();
    });
}

void QVPanEventFilter::addControl(QWidget *control)
{
    m_controls.emplace_back(control);
    control->installEventFilter(this);
}

bool QVPanEventFilter::eventFilter(QObject *watched, QEvent *event)
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
            m_recognizer.cancel();
        return false;
    case QEvent::TouchCancel:
        if (!m_isTakingFromControl)
            m_recognizer.cancel();
        return false;
    case QEvent::UngrabMouse:
    case QEvent::Hide:
    case QEvent::WindowBlocked:
    case QEvent::WindowDeactivate:
        if (receiver == m_view)
            m_recognizer.cancel();
        return false;
    default:
        return false;
    }
}

bool QVPanEventFilter::handleMouse(QWidget *receiver, const QMouseEvent &event)
{
    const bool isOnControl = receiver != m_view;
    if (m_isTakingFromControl)
        return !isOnControl;
    const QPointF location = isOnControl ? receiver->mapTo(m_view, event.position()) : event.position();
    if (takesClick(receiver, event))
        return true;
    const bool wasDragging = m_recognizer.isDragging();
    const bool wasFollowed = m_recognizer.pointer() == Pointer::Mouse;
    if (event.type() == QEvent::MouseMove) {
        if (m_pickedUpPen.move(event.buttons(), location))
            takeFromControl(Pointer::Mouse);
    } else if (event.button() != Qt::LeftButton) {
        return wasDragging;
    } else if (event.type() != QEvent::MouseButtonRelease) {
        press(Pointer::Mouse, isOnControl ? receiver : nullptr, location);
    } else if (wasFollowed) {
        m_recognizer.release(Pointer::Mouse, location);
    }
    // Until a drag begins, the control also receives a press on it.
    return isOnControl ? wasDragging || m_recognizer.isDragging()
                       : wasFollowed || m_recognizer.pointer() == Pointer::Mouse;
}

bool QVPanEventFilter::takesClick(QWidget *receiver, const QMouseEvent &event)
{
    if (event.type() == QEvent::MouseMove || event.button() != Qt::LeftButton)
        return false;
    if (m_pickedUpPen.isUp() && receiver != m_view) {
        // A click on a control belongs to the control.
        m_pickedUpPen.drop();
        return false;
    }
    if (event.type() != QEvent::MouseButtonRelease)
        return m_pickedUpPen.takesPress();
    return receiver == m_view && m_pickedUpPen.takesRelease();
}

bool QVPanEventFilter::handleTouch(QWidget *receiver, QTouchEvent &event)
{
    const bool isOnControl = receiver != m_view;
    const bool wasDragging = m_recognizer.isDragging();
    if (m_recognizer.pointer() == Pointer::Touch)
        followTouch(event);
    if (event.type() != QEvent::TouchBegin)
        return isOnControl ? wasDragging || m_recognizer.isDragging() : true;
    if (m_recognizer.pointer() == Pointer::None)
        return pressTouch(receiver, event);
    // The control ignores a second finger, which Qt then delivers to the view. That ignores it, too.
    if (isOnControl && m_recognizer.isDragging())
        event.ignore();
    return !isOnControl || m_recognizer.isDragging();
}

bool QVPanEventFilter::pressTouch(QWidget *receiver, const QTouchEvent &event)
{
    const bool isOnControl = receiver != m_view;
    const QEventPoint &point = event.points().constFirst();
    const QPointF location = m_view->mapFromGlobal(point.globalPosition());
    // Qt turns a touch that nobody accepts into a mouse press, which is what such a control takes.
    if (!takesPresses() || (!isOnControl && isOverControl(location)))
        return false;
    m_touchDevice = event.pointingDevice();
    m_touchId = point.id();
    press(Pointer::Touch, isOnControl ? receiver : nullptr, location);
    return !isOnControl;
}

void QVPanEventFilter::followTouch(const QTouchEvent &event)
{
    const auto &points = event.points();
    const auto found = std::ranges::find(points, m_touchId, &QEventPoint::id);
    // The event may be about other fingers alone.
    if (event.device() != m_touchDevice || found == points.end())
        return;
    const QPointF location = m_view->mapFromGlobal(found->globalPosition());
    if (found->state() == QEventPoint::Updated)
        move(Pointer::Touch, location);
    else if (found->state() == QEventPoint::Released)
        m_recognizer.release(Pointer::Touch, location);
    else if (found->state() == QEventPoint::Pressed)
        m_recognizer.cancel();
}

bool QVPanEventFilter::handlePen(const QTabletEvent &event)
{
    if (event.type() == QEvent::TabletPress) {
        if (!takesPresses() || event.button() != Qt::LeftButton || isOverControl(event.position()))
            return false;
        press(Pointer::Pen, nullptr, event.position());
        return true;
    }
    if (m_recognizer.pointer() != Pointer::Pen)
        return false;
    if (event.type() == QEvent::TabletMove)
        move(Pointer::Pen, event.position());
    else if (event.button() == Qt::LeftButton)
        m_recognizer.release(Pointer::Pen, event.position());
    return true;
}

bool QVPanEventFilter::takesPresses() const
{
    return m_recognizer.isEnabled() && m_view->isEnabled();
}

void QVPanEventFilter::press(Pointer pointer, QWidget *control, QPointF location)
{
    if (!m_view->isEnabled())
        return;
    m_recognizer.press(pointer, location);
    if (m_recognizer.pointer() == pointer)
        m_pressedControl = control;
}

void QVPanEventFilter::move(Pointer pointer, QPointF location)
{
    if (m_recognizer.move(pointer, location))
        takeFromControl(pointer);
}

bool QVPanEventFilter::isOverControl(QPointF location) const
{
    const QWidget *child = m_view->childAt(location.toPoint());
    return child && std::ranges::find(m_controls, child) != m_controls.end();
}

void QVPanEventFilter::takeFromControl(Pointer pointer)
{
    QWidget *const control = std::exchange(m_pressedControl, nullptr);
    if (!control)
        return;
    m_isTakingFromControl = true;
    if (pointer == Pointer::Touch) {
        QTouchEvent cancelled(QEvent::TouchCancel, m_touchDevice);
        QCoreApplication::sendEvent(control, &cancelled);
    } else {
        releaseOutside(control);
    }
    m_isTakingFromControl = false;
}
