#include "quick/QVQuickPad.h"

#include "quick/QVQuickWindows.h"

#include <QGuiApplication>
#include <QQuickWindow>

#include <algorithm>

QVQuickPad::QVQuickPad(QQuickItem *parent)
    : QQuickItem(parent)
{
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptTouchEvents(true);
    // Moves without a button, for those who cannot drag.
    setAcceptHoverEvents(true);
    setFiltersChildMouseEvents(true);
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state != Qt::ApplicationActive)
            cancel();
    });
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow *now) {
        if (window() && now != QVQuickWindows::shown(window()))
            cancel();
    });
}

QVQuickPad::~QVQuickPad() = default;

void QVQuickPad::tell(QVPanGestureRecognizer &recognizer)
{
    m_recognizer = &recognizer;
    m_pickedUpPen = std::make_unique<QVPickedUpPen>(recognizer);
    m_steering = std::make_unique<QVPenSteering>(recognizer);
}

void QVQuickPad::cancel()
{
    if (m_recognizer)
        m_recognizer->cancel();
}

bool QVQuickPad::takesPresses() const
{
    return m_recognizer && m_recognizer->isEnabled();
}

void QVQuickPad::mousePressEvent(QMouseEvent *event)
{
    event->setAccepted(takesPresses());
    if (!event->isAccepted() || m_pickedUpPen->takesPress())
        return;
    // A list around the panel must not scroll instead.
    setKeepMouseGrab(true);
    m_recognizer->press(Pointer::Mouse, event->position());
}

void QVQuickPad::mouseMoveEvent(QMouseEvent *event)
{
    if (m_pickedUpPen)
        m_pickedUpPen->move(event->buttons(), event->position());
}

void QVQuickPad::mouseReleaseEvent(QMouseEvent *event)
{
    setKeepMouseGrab(false);
    if (m_recognizer && !m_pickedUpPen->takesRelease())
        m_recognizer->release(Pointer::Mouse, event->position());
}

void QVQuickPad::mouseUngrabEvent()
{
    const bool isMouse = m_recognizer && m_recognizer->pointer() == Pointer::Mouse;
    if (isMouse && !m_pickedUpPen->isUp())
        cancel();
}

void QVQuickPad::hoverMoveEvent(QHoverEvent *event)
{
    if (m_pickedUpPen && m_pickedUpPen->isUp())
        m_pickedUpPen->move(Qt::NoButton, event->position());
    event->ignore();
}

bool QVQuickPad::childMouseEventFilter(QQuickItem * /*child*/, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return filterMouse(*static_cast<QMouseEvent *>(event));
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        return filterTouch(*static_cast<QTouchEvent *>(event));
    default:
        return false;
    }
}

bool QVQuickPad::filterMouse(const QMouseEvent &event)
{
    const QPointF location = mapFromScene(event.scenePosition());
    if (!takesPresses())
        return false;
    if (event.type() == QEvent::MouseMove) {
        m_pickedUpPen->move(event.buttons(), location);
    } else if (event.button() != Qt::LeftButton) {
        return false;
    } else if (event.type() == QEvent::MouseButtonPress) {
        // The control's own click: a line that follows the mouse is gone.
        if (m_pickedUpPen->takesPress())
            m_pickedUpPen->drop();
        else
            m_recognizer->press(Pointer::Mouse, location);
    } else if (m_recognizer->pointer() == Pointer::Mouse && !m_recognizer->isDragging()) {
        m_recognizer->cancel();
    }
    // Until it is a drag, a press on a control is the control's too.
    const bool isTaken = m_recognizer->pointer() == Pointer::Mouse && m_recognizer->isDragging();
    setKeepMouseGrab(isTaken);
    if (isTaken)
        grabMouse();
    return isTaken;
}

bool QVQuickPad::filterTouch(const QTouchEvent &event)
{
    if (event.type() == QEvent::TouchBegin)
        beginTouch(event);
    else if (m_hasTakenTouch && event.type() == QEvent::TouchUpdate)
        grabTouchPoints({m_touchId});
    return m_hasTakenTouch;
}

void QVQuickPad::touchEvent(QTouchEvent *event)
{
    const bool isPress = event->touchPointStates().testFlag(QEventPoint::Pressed);
    if (isPress)
        beginTouch(*event);
    const bool isFollowed = m_recognizer && m_recognizer->pointer() == Pointer::Touch;
    // Other fingers are ignored while one draws; what is left of a stroke that has ended is, too.
    event->setAccepted(isFollowed || m_hasTakenTouch || !isPress);
}

void QVQuickPad::touchUngrabEvent()
{
    if (m_recognizer && m_recognizer->pointer() == Pointer::Touch)
        cancel();
}

void QVQuickPad::beginTouch(const QTouchEvent &event)
{
    if (!m_recognizer || m_recognizer->pointer() != Pointer::None)
        return;
    m_hasTakenTouch = false;
    if (takesPresses())
        pressTouch(event);
}

void QVQuickPad::pressTouch(const QTouchEvent &event)
{
    const auto &points = event.points();
    const auto pressed = std::ranges::find(points, QEventPoint::Pressed, &QEventPoint::state);
    if (pressed == points.end())
        return;
    m_touchDevice = event.pointingDevice();
    m_touchId = pressed->id();
    m_hasTakenTouch = false;
    setKeepTouchGrab(true);
    m_recognizer->press(Pointer::Touch, mapFromScene(pressed->scenePosition()));
    readWindow(window());
}

void QVQuickPad::readWindow(QQuickWindow *window)
{
    if (m_readWindow)
        m_readWindow->removeEventFilter(this);
    m_readWindow = window;
    if (m_readWindow)
        m_readWindow->installEventFilter(this);
}

bool QVQuickPad::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_keyTarget)
        return handleKey(*event);
    switch (event->type()) {
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        followTouch(*static_cast<QTouchEvent *>(event));
        break;
    case QEvent::TouchCancel:
        cancel();
        break;
    default:
        break;
    }
    if (m_recognizer->pointer() != Pointer::Touch)
        readWindow(nullptr);
    return false;
}

void QVQuickPad::followTouch(const QTouchEvent &event)
{
    const auto &points = event.points();
    const auto found = std::ranges::find(points, m_touchId, &QEventPoint::id);
    // The event may be about other fingers alone.
    if (event.pointingDevice() != m_touchDevice || found == points.end())
        return;
    // In the window's coordinates, which are the scene's.
    const QPointF location = mapFromScene(found->position());
    if (found->state() == QEventPoint::Updated)
        m_recognizer->move(Pointer::Touch, location);
    else if (found->state() == QEventPoint::Released)
        m_recognizer->release(Pointer::Touch, location);
    else if (found->state() == QEventPoint::Pressed)
        cancel();
    m_hasTakenTouch = m_hasTakenTouch || m_recognizer->isDragging();
}

void QVQuickPad::itemChange(ItemChange change, const ItemChangeData &data)
{
    if (change == ItemSceneChange || change == ItemVisibleHasChanged || change == ItemEnabledHasChanged)
        cancel();
    if (change == ItemSceneChange)
        readWindow(nullptr);
    QQuickItem::itemChange(change, data);
}

void QVQuickPad::setKeyTarget(QQuickItem *target)
{
    m_keyTarget = target;
    // None once a clumsy host has destroyed the picture.
    if (target)
        target->installEventFilter(this);
}

void QVQuickPad::setPenReady(bool ready)
{
    m_steering->setReady(ready);
    refreshPen();
}

void QVQuickPad::followKeyTarget()
{
    m_steering->setFrame(mapRectFromItem(m_keyTarget, m_keyTarget->boundingRect()));
}

void QVQuickPad::refreshPen()
{
    if (!m_steering || !m_keyTarget)
        return;
    followKeyTarget();
    Q_EMIT penChanged();
}

bool QVQuickPad::handleKey(QEvent &event)
{
    if (!m_steering)
        return false;
    followKeyTarget();
    const bool isTaken = m_steering->takeEvent(event);
    if (isTaken || event.type() == QEvent::FocusIn || event.type() == QEvent::FocusOut)
        Q_EMIT penChanged();
    return isTaken;
}
