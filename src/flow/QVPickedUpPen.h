#pragma once

#include "flow/QVPanGestureRecognizer.h"

#include <Qt>

/// Drawing with the mouse for users who cannot drag: a click picks the pen up. It then follows the mouse
/// without a button, and the next click puts it down.
class QUARVO_CORE_EXPORT QVPickedUpPen
{
public:
    /// \a recognizer receives the strokes and must outlive this.
    explicit QVPickedUpPen(QVPanGestureRecognizer &recognizer)
        : m_recognizer(recognizer)
    {
    }

    [[nodiscard]] bool isUp() const;
    /// Whether a press of the left button belongs to the second click, and so does not begin a stroke.
    bool takesPress();
    /// Whether a release of the left button belongs to the first click, and so does not end a stroke.
    bool takesRelease();
    /// Puts the pen down and discards the line.
    void drop();
    /// Returns whether a drag begins with this move.
    bool move(Qt::MouseButtons buttons, QPointF location);

private:
    QVPanGestureRecognizer &m_recognizer;
    bool m_isUp = false;
};
