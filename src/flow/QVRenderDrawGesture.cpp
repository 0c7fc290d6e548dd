#include "flow/QVRenderDrawGesture.h"

#include "platform/QVScheduler.h"

QVRenderDrawGesture::QVRenderDrawGesture(QVRenderDrawSurface *surface, Began began, Ended ended)
    : m_surface(surface)
    , m_began(std::move(began))
    , m_ended(std::move(ended))
{
    m_panGestureRecognizer.setEnabled(false);
    m_panGestureRecognizer.setShouldBegin(
        [this](QPointF location) { return m_surface && gestureRecognizerShouldBegin(location); });
    m_panGestureRecognizer.setAction([this](QVPanGestureRecognizer::State state, QPointF location) {
        if (m_surface)
            panGestureRecognizerAction(state, location);
    });
}

bool QVRenderDrawGesture::gestureRecognizerShouldBegin(QPointF location) const
{
    // The row below the picture and the column to its right are outside.
    const QRectF frame = m_surface.get()->imageFrame();
    return !m_outage ||
           (frame.contains(location) && location.x() < frame.right() && location.y() < frame.bottom());
}

void QVRenderDrawGesture::panGestureRecognizerAction(QVPanGestureRecognizer::State state, QPointF location)
{
    switch (state) {
    case QVPanGestureRecognizer::State::Began:
        return panGestureRecognizerStateBegan(location);
    case QVPanGestureRecognizer::State::Changed:
        return panGestureRecognizerStateChanged(location);
    case QVPanGestureRecognizer::State::Ended:
        return panGestureRecognizerStateEnded(location);
    default:
        return panGestureRecognizerStateOthers();
    }
}

void QVRenderDrawGesture::panGestureRecognizerStateBegan(QPointF location)
{
    const double time = QVScheduler::shared().secondsSince1970();
    m_trace.setFrame(m_surface.get()->traceFrame());
    m_trace.setPanGestureStartTime(time);
    m_trace.handlePanGesturePoint(location, time);
    m_surface.get()->beginStroke(location);
    m_began();
}

void QVRenderDrawGesture::panGestureRecognizerStateChanged(QPointF location)
{
    if (gestureRecognizerShouldBegin(location) && !isOutdated())
        extendStroke(location);
    else
        m_panGestureRecognizer.cancel(); // This calls back; the rest of the drag is ignored.
}

void QVRenderDrawGesture::panGestureRecognizerStateEnded(QPointF location)
{
    if (isOutdated())
        return panGestureRecognizerStateOthers();
    extendStroke(location);
    m_ended(m_trace);
    m_trace.resetDataSource();
    m_surface.get()->resetUIs();
}

void QVRenderDrawGesture::panGestureRecognizerStateOthers()
{
    m_trace.resetDataSource();
    m_surface.get()->resetUIs();
    m_ended(m_trace);
}

void QVRenderDrawGesture::extendStroke(QPointF location)
{
    m_trace.handlePanGesturePoint(location, QVScheduler::shared().secondsSince1970());
    m_surface.get()->extendStroke(location);
}

bool QVRenderDrawGesture::isOutdated() const
{
    return m_trace.frame() != m_surface.get()->traceFrame();
}
