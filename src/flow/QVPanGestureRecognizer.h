#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QPointF>

#include <functional>

/// Recognises a drag of one pointer: a finger, a pen, the left mouse button, or a pen moved by keys.
///
/// A drag begins once the pointer is as far from the press as the points of a trace must be from each other.
/// The first reported position is that of the press. So a tap is not a drag, and no point of a trace is lost.
/// While one pointer is followed, all others are ignored.
class QUARVO_CORE_EXPORT QVPanGestureRecognizer
{
public:
    enum class State { Possible, Began, Changed, Ended, Cancelled, Failed };
    enum class Pointer { None, Mouse, Touch, Pen, Keys };
    using Action = std::function<void(State state, QPointF location)>;
    using ShouldBegin = std::function<bool(QPointF location)>;

    void setAction(Action action) { m_action = std::move(action); }
    void setShouldBegin(ShouldBegin shouldBegin) { m_shouldBegin = std::move(shouldBegin); }

    [[nodiscard]] bool isEnabled() const { return m_isEnabled; }
    /// Disabling cancels the drag under way. Enabling does not resume it.
    void setEnabled(bool enabled);
    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] bool isDragging() const { return m_state == State::Began || m_state == State::Changed; }
    /// The pointer that is followed, even before it drags.
    [[nodiscard]] Pointer pointer() const { return m_pointer; }

    void press(Pointer pointer, QPointF location);
    /// Ignored, as release() is, unless \a pointer is followed. Returns whether a drag begins with this move.
    bool move(Pointer pointer, QPointF location);
    void release(Pointer pointer, QPointF location);
    /// Cancels the drag under way, if there is one.
    void cancel() { finish(State::Cancelled); }

private:
    [[nodiscard]] bool begin(QPointF location);
    void finish(State state);
    void tell(State state);

    Action m_action;
    ShouldBegin m_shouldBegin;
    bool m_isEnabled = true;
    State m_state = State::Possible;
    Pointer m_pointer = Pointer::None;
    QPointF m_location;
    QPointF m_pressLocation;
};
