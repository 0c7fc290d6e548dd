#pragma once

#include <QObject>
#include <QPointer>

#include <functional>

class QWidget;

/// Keeps the keyboard focus inside one widget while active, and gives it back afterwards.
class QVFocusTrap final : public QObject
{
    Q_OBJECT

public:
    explicit QVFocusTrap(QWidget *root);

    [[nodiscard]] bool isActive() const { return m_active; }
    /// Moves the focus inside, also if the trap is active already: its root may have moved to another window.
    void activate();
    /// Clears the focus in a window that the root is about to leave. Otherwise the root would stay the focus
    /// widget of that window.
    void leaveWindow();
    /// Takes the focus again after the root has moved to another window.
    void moveInside();
    /// Deactivates the trap. The widget that had the focus before gets it back if it still can.
    void release();

    /// Whether the trap is moving the focus at this moment. The host may run a nested event loop in a focus
    /// handler while Qt still uses the root. So the root must not be destroyed before settled().
    [[nodiscard]] bool isMoving() const { return m_moves > 0; }

    /// Whether no other widget of the root's class is above it in the same window.
    [[nodiscard]] bool isOnTop() const;

    /// For Tab and Backtab: moves the focus to the next or previous widget inside, cyclically.
    void moveFocus(bool next);

Q_SIGNALS:
    void settled();

private:
    [[nodiscard]] bool holds(const QWidget *widget) const;
    void followFocus(QWidget *now);
    /// Moves the focus to the widget inside that had it last, if it is visible, otherwise to the root.
    void focusInside();
    void rememberFocus();
    /// Must be the last statement of its caller: the root may be destroyed in it, together with the host's
    /// window.
    void moveTo(QWidget *target, Qt::FocusReason reason);
    void move(const std::function<void()> &work);

    QWidget *m_root;
    QPointer<QWidget> m_before;
    QPointer<QWidget> m_inside;
    bool m_active = false;
    int m_moves = 0;
};
