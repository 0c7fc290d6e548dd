#pragma once

#include "flow/QVPanGestureRecognizer.h"

#include <Qt>

/// Drawing with the mouse for those who cannot drag: a click picks the pen up, which then follows the mouse
/// without a button, and the next click puts it down.
class QUARVO_CORE_EXPORT QVPickedUpPen
{
public:
    /// \a recognizer takes the strokes and outlives this.
    explicit QVPickedUpPen(QVPanGestureRecognizer &recognizer)
        : m_recognizer(recognizer)
    {
    }

    [[nodiscard]] bool isUp() const;
    /// Whether a press of the left button is that of the second click, which begins no stroke.
    bool takesPress();
    /// Whether a release of the left button is the first click, with which nothing ends.
    bool takesRelease();
    /// The line is gone.
    void drop();
    /// Returns whether a drag began by this move.
    bool move(Qt::MouseButtons buttons, QPointF location);

private:
    QVPanGestureRecognizer &m_recognizer;
    bool m_isUp = false;
};
