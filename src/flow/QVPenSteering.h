#pragma once

#include "flow/QVPanGestureRecognizer.h"

#include <QRectF>
#include <QSet>

class QEvent;
class QKeyEvent;

/// Drawing with the keyboard: the arrow keys move a pen over the picture, Space lowers and lifts it, and
/// Escape discards what was drawn. Shift makes the steps small.
class QUARVO_CORE_EXPORT QVPenSteering
{
public:
    /// \a recognizer receives the strokes and must outlive this.
    explicit QVPenSteering(QVPanGestureRecognizer &recognizer);

    /// Sets whether there is a picture to draw on.
    void setReady(bool ready) { m_isReady = ready; }
    [[nodiscard]] bool isReady() const { return m_isReady; }
    /// Sets the frame of the picture, in the coordinates of the strokes.
    void setFrame(const QRectF &frame) { m_frame = frame; }
    /// The position of the pen, always inside the picture.
    [[nodiscard]] QPointF location() const;
    /// Whether the pen is down.
    [[nodiscard]] bool isSteering() const;

    /// Whether a key of the pen was pressed since the focus came, so that the keys need not be explained.
    [[nodiscard]] bool isUsed() const { return m_isUsed; }

    /// Takes an event of what has the keyboard focus. Returns true if nobody else is to have it.
    bool takeEvent(QEvent &event);

private:
    [[nodiscard]] bool isPenKey(const QKeyEvent &event) const;
    bool press(const QKeyEvent &event);
    void release(const QKeyEvent &event);
    void leave();
    void movePen(bool finely);
    void lowerOrLift();

    QVPanGestureRecognizer &m_recognizer;
    QRectF m_frame;
    /// The position as fractions of the picture's size, so that it stays in place when that is resized.
    QPointF m_place{0.1, 0.5};
    QSet<int> m_heldArrows;
    bool m_isReady = false;
    bool m_isUsed = false;
};
