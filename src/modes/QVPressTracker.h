#pragma once

#include <QPointF>
#include <QPointer>

class QPointingDevice;
class QTouchEvent;

/// Follows one press of a button by mouse, finger or key, and reports its moves to the button. While one
/// finger is followed, all others are ignored.
class QVPressTracker
{
public:
    /// The pressed button. Each call may destroy it together with the tracker.
    class Button
    {
    public:
        /// Whether \a point is inside the button. False for all points while it takes no input.
        [[nodiscard]] virtual bool pointInside(QPointF point) const = 0;
        virtual void beginTrackingWithTouch(QPointF point) = 0;
        virtual void pressMoved(bool inside) = 0;
        virtual void pressEnded(bool inside) = 0;

    protected:
        ~Button() = default;
    };

    explicit QVPressTracker(Button &button);

    [[nodiscard]] bool isTracking() const { return m_tracking; }
    void begin(QPointF point);
    void move(QPointF point);
    void end(QPointF point);
    /// Ends a press whose release will not come, like a release outside the button.
    void cancel();
    /// Ends the press without telling the button.
    void forget() { m_tracking = false; }
    void takeTouch(QTouchEvent &event);

private:
    void beginTouch(QTouchEvent &event);
    void followTouch(const QTouchEvent &event);

    Button &m_button;
    bool m_tracking = false;
    QPointer<const QPointingDevice> m_device;
    int m_finger = 0;
};
