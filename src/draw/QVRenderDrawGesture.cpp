#include "draw/QVRenderDrawGesture.h"

#include "draw/QVRenderStrokeView.h"
#include "platform/QVScheduler.h"

QVRenderDrawGesture::QVRenderDrawGesture(QWidget *view, ImageFrame imageFrame)
    : m_view(view)
    , m_imageFrame(std::move(imageFrame))
    , m_events(view, m_panGestureRecognizer)
    , m_renderLayer(new QVRenderStrokeView(view))
{
    m_panGestureRecognizer.setEnabled(false);
    m_panGestureRecognizer.setShouldBegin(
        [this](QPointF location) { return gestureRecognizerShouldBegin(location); });
    m_panGestureRecognizer.setAction([this](QVPanGestureRecognizer::State state, QPointF location) {
        panGestureRecognizerAction(state, location);
    });
}

void QVRenderDrawGesture::layoutSubviews()
{
    // A trace is measured by the size that it began with.
    if (m_renderLayer->size() != m_view->size())
        m_panGestureRecognizer.cancel();
    m_renderLayer->setGeometry(m_view->rect());
    m_renderLayer->raise();
}

bool QVRenderDrawGesture::mayBeAt(QPointF location) const
{
    const QRectF frame = m_imageFrame();
    return !m_staysInPicture ||
           (frame.contains(location) && location.x() < frame.right() && location.y() < frame.bottom());
}

bool QVRenderDrawGesture::gestureRecognizerShouldBegin(QPointF location) const
{
    return mayBeAt(location);
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
    m_trace.setFrameSize(m_view->size());
    m_trace.setPanGestureStartTime(time);
    m_trace.handlePanGesturePoint(location, time);
    m_renderLayer->moveTo(location);
    Q_EMIT began();
}

void QVRenderDrawGesture::panGestureRecognizerStateChanged(QPointF location)
{
    if (!mayBeAt(location)) {
        // The recogniser reports it, and the rest of the drag is ignored.
        m_panGestureRecognizer.cancel();
        return;
    }
    extendStroke(location);
}

void QVRenderDrawGesture::panGestureRecognizerStateEnded(QPointF location)
{
    extendStroke(location);
    if (m_trace.isAcceptable())
        Q_EMIT accepted();
    else
        Q_EMIT discarded();
    m_trace.resetDataSource();
    resetUIs();
}

void QVRenderDrawGesture::panGestureRecognizerStateOthers()
{
    m_trace.resetDataSource();
    resetUIs();
    Q_EMIT discarded();
}

void QVRenderDrawGesture::extendStroke(QPointF location)
{
    m_trace.handlePanGesturePoint(location, QVScheduler::shared().secondsSince1970());
    m_renderLayer->addLineTo(location);
}

void QVRenderDrawGesture::resetUIs()
{
    m_renderLayer->removeAllPoints();
}
