#pragma once

#include "flow/QVPanGestureRecognizer.h"
#include "flow/QVRenderDrawSurface.h"
#include "flow/QVRenderTrace.h"

/// A stroke as a state machine: turns a drag into a line on the surface and into a trace. During an outage
/// the stroke must stay inside the picture.
class QUARVO_CORE_EXPORT QVRenderDrawGesture
{
public:
    using Began = std::function<void()>;
    /// Receives the trace of a stroke; empty if the stroke was cancelled.
    using Ended = std::function<void(const QVRenderTrace &trace)>;

    /// The recogniser is disabled at first. The callbacks must not destroy this.
    QVRenderDrawGesture(QVRenderDrawSurface *surface, Began began, Ended ended);
    Q_DISABLE_COPY(QVRenderDrawGesture)

    [[nodiscard]] QVPanGestureRecognizer &panGestureRecognizer() { return m_panGestureRecognizer; }
    void setOutage(bool outage) { m_outage = outage; }

private:
    [[nodiscard]] bool gestureRecognizerShouldBegin(QPointF location) const;
    void panGestureRecognizerAction(QVPanGestureRecognizer::State state, QPointF location);
    void panGestureRecognizerStateBegan(QPointF location);
    void panGestureRecognizerStateChanged(QPointF location);
    void panGestureRecognizerStateEnded(QPointF location);
    void panGestureRecognizerStateOthers();
    void extendStroke(QPointF location);
    /// Whether the size of the surface, by which traces are measured, has changed since the stroke began.
    [[nodiscard]] bool isOutdated() const;

    const QVWeakDelegate<QVRenderDrawSurface> m_surface;
    const Began m_began;
    const Ended m_ended;
    QVPanGestureRecognizer m_panGestureRecognizer;
    QVRenderTrace m_trace;
    bool m_outage = false;
};
