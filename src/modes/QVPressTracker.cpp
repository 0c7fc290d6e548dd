#include "modes/QVPressTracker.h"

#include <QPointingDevice>
#include <QTouchEvent>

#include <algorithm>
#include <utility>

QVPressTracker::QVPressTracker(Button &button)
    : m_button(button)
{
}

void QVPressTracker::begin(QPointF point)
{
    m_tracking = true;
    m_button.beginTrackingWithTouch(point);
}

void QVPressTracker::move(QPointF point)
{
    if (m_tracking)
        m_button.pressMoved(m_button.pointInside(point));
}

void QVPressTracker::end(QPointF point)
{
    if (std::exchange(m_tracking, false))
        m_button.pressEnded(m_button.pointInside(point));
}

void QVPressTracker::cancel()
{
    if (std::exchange(m_tracking, false))
        m_button.pressEnded(false);
}

void QVPressTracker::takeTouch(QTouchEvent &event)
{
    if (event.type() == QEvent::TouchCancel || event.pointCount() == 0)
        cancel();
    else if (event.type() == QEvent::TouchBegin)
        beginTouch(event);
    else if (event.device() == m_device)
        followTouch(event);
}

void QVPressTracker::beginTouch(QTouchEvent &event)
{
    const QEventPoint &finger = event.points().constFirst();
    event.setAccepted(m_button.pointInside(finger.position()));
    if (!event.isAccepted() || m_tracking)
        return;
    m_device = event.pointingDevice();
    m_finger = finger.id();
    begin(finger.position());
}

void QVPressTracker::followTouch(const QTouchEvent &event)
{
    const auto &points = event.points();
    const auto finger = std::ranges::find(points, m_finger, &QEventPoint::id);
    if (finger == points.end())
        return;
    if (finger->state() == QEventPoint::Released)
        end(finger->position());
    else
        move(finger->position());
}
