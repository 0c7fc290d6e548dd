#include "flow/QVPanGestureRecognizer.h"

#include "flow/QVRenderTrace.h"

#include <algorithm>
#include <cmath>

void QVPanGestureRecognizer::setEnabled(bool enabled)
{
    m_isEnabled = enabled;
    if (!enabled)
        cancel();
}

void QVPanGestureRecognizer::press(Pointer pointer, QPointF location)
{
    // A second press of the same pointer means that its release was lost.
    if (m_pointer == pointer)
        cancel();
    if (!m_isEnabled || m_pointer != Pointer::None)
        return;
    m_pointer = pointer;
    m_pressLocation = location;
    m_location = location;
}

bool QVPanGestureRecognizer::move(Pointer pointer, QPointF location)
{
    if (m_pointer != pointer)
        return false;
    if (isDragging()) {
        m_location = location;
        tell(State::Changed);
        return false;
    }
    const QPointF way = location - m_pressLocation;
    return std::max(std::abs(way.x()), std::abs(way.y())) >= QVRenderTrace::screeningDistance &&
           begin(location);
}

bool QVPanGestureRecognizer::begin(QPointF location)
{
    if (m_shouldBegin && !m_shouldBegin(m_pressLocation)) {
        m_pointer = Pointer::None;
        return false;
    }
    m_location = m_pressLocation;
    tell(State::Began);
    if (isDragging()) {
        m_location = location;
        tell(State::Changed);
    }
    return true;
}

void QVPanGestureRecognizer::release(Pointer pointer, QPointF location)
{
    if (m_pointer != pointer)
        return;
    m_location = location;
    finish(State::Ended);
}

void QVPanGestureRecognizer::finish(State state)
{
    m_pointer = Pointer::None;
    if (!isDragging())
        return;
    tell(state);
    m_state = State::Possible;
}

void QVPanGestureRecognizer::tell(State state)
{
    m_state = state;
    if (m_action)
        m_action(state, m_location);
}
