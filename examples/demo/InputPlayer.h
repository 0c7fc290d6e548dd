#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QVector>
#include <QWidget>

/// Plays a person at the mouse and the keyboard: events enter at the window and find their widget
/// as those of a real device do.
class InputPlayer : public QObject
{
    Q_OBJECT

public:
    explicit InputPlayer(QObject *parent = nullptr);

    void click(QWidget *target);
    void type(QWidget *target, const QString &text);
    /// Draws through \a points of \a target, evenly over the time; finished() comes at the end. A
    /// stroke that is held goes on until lift().
    void draw(QWidget *target, const QVector<QPointF> &points, int milliseconds, bool isHeld = false);
    void lift();
    /// Presses and releases \a keys one after the other in the window of \a target; finished() comes at
    /// the end.
    void press(QWidget *target, const QVector<int> &keys);

Q_SIGNALS:
    void finished();

private:
    void step();
    void pressNext();

    QTimer m_timer;
    QTimer m_keyTimer;
    QVector<int> m_keys;
    QPointer<QWidget> m_target;
    QVector<QPointF> m_points;
    qsizetype m_next = 0;
    bool m_isHeld = false;
};
