#pragma once

#include <QObject>
#include <QPointer>

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

    /// Whether no other widget of the root's class lies above it in the same window.
    [[nodiscard]] bool isOnTop() const;

    /// Tab and Backtab: the next or previous element inside, round and round.
    void moveFocus(bool next);

private:
    [[nodiscard]] bool holds(const QWidget *widget) const;
    void followFocus(QWidget *now);
    /// Where it was inside before, if that can still take it.
    void focusInside();

    QWidget *m_root;
    QPointer<QWidget> m_before;
    QPointer<QWidget> m_inside;
    bool m_active = false;
    bool m_isLeaving = false;
};
