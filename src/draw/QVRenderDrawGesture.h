#pragma once

#include "draw/QVPanEventFilter.h"
#include "flow/QVPanGestureRecognizer.h"
#include "flow/QVRenderTrace.h"

#include <QObject>
#include <QRectF>

class QVRenderStrokeView;

/// Drawing on a view: follows one drag at a time, shows it as a stroke above the view's children and
/// judges whether it is fit to be sent.
class QVRenderDrawGesture final : public QObject
{
    Q_OBJECT

public:
    using ImageFrame = std::function<QRectF()>;

    /// Must not outlive \a view. \a imageFrame tells where the picture is in it.
    QVRenderDrawGesture(QWidget *view, ImageFrame imageFrame);

    [[nodiscard]] QVPanGestureRecognizer &panGestureRecognizer() { return m_panGestureRecognizer; }
    [[nodiscard]] const QVPanGestureRecognizer &panGestureRecognizer() const
    {
        return m_panGestureRecognizer;
    }
    /// Lets a stroke start on a control too.
    void addControl(QWidget *control) { m_events.addControl(control); }
    [[nodiscard]] const QVRenderTrace &trace() const { return m_trace; }

    /// Whether a stroke has to stay within the picture.
    void setStaysInPicture(bool staysInPicture) { m_staysInPicture = staysInPicture; }
    /// Puts the stroke above all children and fits it to the view. A drag across two sizes of the view
    /// comes to nothing.
    void layoutSubviews();

Q_SIGNALS:
    void began();
    /// The trace may be sent. It is gone when the slots have returned.
    void accepted();
    /// The stroke came to nothing.
    void discarded();

private:
    /// Whether a stroke may be at \a location. The first row below the picture and the first column right of
    /// it are no part of it.
    [[nodiscard]] bool mayBeAt(QPointF location) const;
    [[nodiscard]] bool gestureRecognizerShouldBegin(QPointF location) const;
    void panGestureRecognizerAction(QVPanGestureRecognizer::State state, QPointF location);
    void panGestureRecognizerStateBegan(QPointF location);
    void panGestureRecognizerStateChanged(QPointF location);
    void panGestureRecognizerStateEnded(QPointF location);
    void panGestureRecognizerStateOthers();
    void extendStroke(QPointF location);
    void resetUIs();

    QWidget *m_view;
    ImageFrame m_imageFrame;
    QVPanGestureRecognizer m_panGestureRecognizer;
    QVPanEventFilter m_events;
    QVRenderTrace m_trace;
    QVRenderStrokeView *m_renderLayer;
    bool m_staysInPicture = false;
};
