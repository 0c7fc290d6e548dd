#include "flow/QVPenSteering.h"

#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace {

// With these steps a stroke across the picture and back fits into the points that a trace may have.
constexpr double stepsAcross = 40;
constexpr double fineStepsAcross = 160;

QPointF direction(int key)
{
    const auto is = [key](Qt::Key arrow) {
        return double(key == arrow);
    };
    return {is(Qt::Key_Right) - is(Qt::Key_Left), is(Qt::Key_Down) - is(Qt::Key_Up)};
}

bool isArrow(int key)
{
    return !direction(key).isNull();
}

/// At least half a pixel inside, since the right and bottom edges do not belong to the picture.
double inside(double part, double extent)
{
    constexpr double margin = 0.5;
    return std::clamp(part * extent, margin, std::max(margin, extent - margin));
}

} // namespace

QVPenSteering::QVPenSteering(QVPanGestureRecognizer &recognizer)
    : m_recognizer(recognizer)
{
}

QPointF QVPenSteering::location() const
{
    return m_frame.topLeft() +
           QPointF(inside(m_place.x(), m_frame.width()), inside(m_place.y(), m_frame.height()));
}

bool QVPenSteering::isSteering() const
{
    return m_recognizer.pointer() == QVPanGestureRecognizer::Pointer::Keys;
}

bool QVPenSteering::isPenKey(const QKeyEvent &event) const
{
    if (!m_isReady || (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
        return false;
    if (event.key() == Qt::Key_Escape)
        return isSteering();
    return isArrow(event.key()) || event.key() == Qt::Key_Space;
}

bool QVPenSteering::takeEvent(QEvent &event)
{
    switch (event.type()) {
    case QEvent::ShortcutOverride:
        if (!isPenKey(static_cast<QKeyEvent &>(event)))
            return false;
        event.accept();
        return true;
    case QEvent::KeyPress:
        return press(static_cast<QKeyEvent &>(event));
    case QEvent::KeyRelease:
        release(static_cast<QKeyEvent &>(event));
        return false;
    case QEvent::FocusOut:
        leave();
        return false;
    case QEvent::FocusIn:
        m_isUsed = false;
        return false;
    default:
        return false;
    }
}

bool QVPenSteering::press(const QKeyEvent &event)
{
    if (!isPenKey(event))
        return false;
    m_isUsed = true;
    if (isArrow(event.key())) {
        m_heldArrows.insert(event.key());
        movePen(event.modifiers() & Qt::ShiftModifier);
    } else if (event.key() == Qt::Key_Escape) {
        m_recognizer.cancel();
    } else if (!event.isAutoRepeat()) {
        lowerOrLift();
    }
    return true;
}

void QVPenSteering::release(const QKeyEvent &event)
{
    if (!event.isAutoRepeat())
        m_heldArrows.remove(event.key());
}

void QVPenSteering::leave()
{
    m_heldArrows.clear();
    if (isSteering())
        m_recognizer.cancel();
}

void QVPenSteering::movePen(bool finely)
{
    if (m_frame.isEmpty())
        return;
    const double step = m_frame.width() / (finely ? fineStepsAcross : stepsAcross);
    QPointF way;
    // Two arrow keys at once move the pen diagonally.
    for (const int key : std::as_const(m_heldArrows))
        way += direction(key) * step;
    m_place.setX(std::clamp(m_place.x() + way.x() / m_frame.width(), 0.0, 1.0));
    m_place.setY(std::clamp(m_place.y() + way.y() / m_frame.height(), 0.0, 1.0));
    m_recognizer.move(QVPanGestureRecognizer::Pointer::Keys, location());
}

void QVPenSteering::lowerOrLift()
{
    if (isSteering())
        m_recognizer.release(QVPanGestureRecognizer::Pointer::Keys, location());
    else
        m_recognizer.press(QVPanGestureRecognizer::Pointer::Keys, location());
}
