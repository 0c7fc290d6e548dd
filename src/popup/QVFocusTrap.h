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
    void activate();
    /// Gives up the focus in a window that the root is about to leave: Qt would let that window go on
    /// pointing to it.
    void leaveWindow();
    /// Takes the focus again, after the root has moved to another window.
    void moveInside();
    /// Lets go; whoever had the focus before gets it back if it can still take it.
    void release();

    /// Whether the trap is moving the focus at this moment. The host hears of that, and may run a nested
    /// event loop in answer: Qt still works on the root, which must not be destroyed before settled().
    [[nodiscard]] bool isMoving() const { return m_moves > 0; }

    /// Whether no other widget of the root's class lies above it in the same window.
    [[nodiscard]] bool isOnTop() const;

    /// Tab and Backtab: the next or previous element inside, round and round.
    void moveFocus(bool next);

Q_SIGNALS:
    void settled();

private:
    [[nodiscard]] bool holds(const QWidget *widget) const;
    void followFocus(QWidget *now);
    /// Where it was inside before, if that can still take it.
    void focusInside();
    /// Comes last wherever it is called: the root may have been destroyed together with the host's window.
    void moveTo(QWidget *target, Qt::FocusReason reason);
    void move(const std::function<void()> &work);

    QWidget *m_root;
    QPointer<QWidget> m_before;
    QPointer<QWidget> m_inside;
    bool m_active = false;
    int m_moves = 0;
};
