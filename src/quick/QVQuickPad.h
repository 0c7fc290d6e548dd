#pragma once

#include "flow/QVPenSteering.h"
#include "flow/QVPickedUpPen.h"

#include <QPointer>
#include <QQuickItem>

#include <memory>

/// Tells a recogniser what pointers and keys do on an item, wherever in it and over whatever else is in it.
///
/// Qt Quick delivers the moves of a finger once a frame, which is too seldom for a trace. So while a finger
/// is followed, the window's own events are read.
class QVQuickPad : public QQuickItem
{
    Q_OBJECT
    QML_ANONYMOUS
    /// The item that the keyboard's pen moves over while it has the focus.
    Q_PROPERTY(QQuickItem *keyTarget READ keyTarget WRITE setKeyTarget)
    /// Where that pen is.
    Q_PROPERTY(QPointF pen READ pen NOTIFY penChanged)
    Q_PROPERTY(bool isPenDown READ isPenDown NOTIFY penChanged)
    /// Whether a key of the pen was used since the item got the focus.
    Q_PROPERTY(bool isPenUsed READ isPenUsed NOTIFY penChanged)

public:
    explicit QVQuickPad(QQuickItem *parent = nullptr);
    ~QVQuickPad() override;

    [[nodiscard]] QQuickItem *keyTarget() const { return m_keyTarget; }
    void setKeyTarget(QQuickItem *target);
    /// Updates the pen's place: the key target has moved, or the pen was lifted by other code.
    Q_INVOKABLE void refreshPen();
    [[nodiscard]] QPointF pen() const { return m_steering ? m_steering->location() : QPointF(); }
    [[nodiscard]] bool isPenDown() const { return m_steering && m_steering->isSteering(); }
    [[nodiscard]] bool isPenUsed() const { return m_steering && m_steering->isUsed(); }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void penChanged();

protected:
    /// From now on \a recognizer is told; it outlives this, or forget() is called before.
    void tell(QVPanGestureRecognizer &recognizer);
    void setPenReady(bool ready);
    /// Ends a stroke that is being drawn as if it had not begun.
    void cancel();
    /// Shows where the pen is, and whether it is down, which others may have changed.

    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;
    void hoverMoveEvent(QHoverEvent *event) override;
    void touchEvent(QTouchEvent *event) override;
    void touchUngrabEvent() override;
    bool childMouseEventFilter(QQuickItem *child, QEvent *event) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    using Pointer = QVPanGestureRecognizer::Pointer;

    [[nodiscard]] bool takesPresses() const;
    [[nodiscard]] bool filterMouse(const QMouseEvent &event);
    [[nodiscard]] bool filterTouch(const QTouchEvent &event);
    void beginTouch(const QTouchEvent &event);
    void pressTouch(const QTouchEvent &event);
    void followTouch(const QTouchEvent &event);
    void readWindow(QQuickWindow *window);
    [[nodiscard]] bool handleKey(QEvent &event);
    void followKeyTarget();

    QVPanGestureRecognizer *m_recognizer = nullptr;
    std::unique_ptr<QVPickedUpPen> m_pickedUpPen;
    std::unique_ptr<QVPenSteering> m_steering;
    QPointer<QQuickItem> m_keyTarget;
    /// The window whose events are read.
    QPointer<QQuickWindow> m_readWindow;
    const QPointingDevice *m_touchDevice = nullptr;
    int m_touchId = 0;
    /// The finger has drawn, so that the control on which it was pressed is not clicked.
    bool m_hasTakenTouch = false;
};
