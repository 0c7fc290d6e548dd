#pragma once

#include <QPointF>
#include <QPointer>

class QPointingDevice;
class QTouchEvent;

/// Follows one press of a button, by mouse, by one finger or by a key, and tells where it goes. While
/// one finger is followed, all others are ignored.
class QVPressTracker
{
public:
    /// The button that is pressed. Each call may destroy it, and the tracker with it.
    class Button
    {
    public:
        /// Whether a press at \a point is the button's, which no point is while it takes no input.
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
    /// Ends a press whose release will not come, as a release outside the button does.
    void cancel();
    /// Forgets the press without a word.
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
