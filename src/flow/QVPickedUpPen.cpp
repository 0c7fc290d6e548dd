#include "flow/QVPickedUpPen.h"

using Pointer = QVPanGestureRecognizer::Pointer;

bool QVPickedUpPen::isUp() const
{
    // The recogniser may have stopped following the mouse meanwhile.
    return m_isUp && m_recognizer.pointer() == Pointer::Mouse;
}

bool QVPickedUpPen::takesPress()
{
    m_isUp = isUp();
    return m_isUp;
}

bool QVPickedUpPen::takesRelease()
{
    const bool wasUp = isUp();
    m_isUp = !wasUp && m_recognizer.pointer() == Pointer::Mouse && !m_recognizer.isDragging();
    return m_isUp;
}

void QVPickedUpPen::drop()
{
    m_isUp = false;
    m_recognizer.cancel();
}

bool QVPickedUpPen::move(Qt::MouseButtons buttons, QPointF location)
{
    if (m_recognizer.pointer() != Pointer::Mouse)
        return false;
    // A move without the button means that another widget has received the release.
    if (isUp() || (buttons & Qt::LeftButton))
        return m_recognizer.move(Pointer::Mouse, location);
    m_recognizer.cancel();
    return false;
}
