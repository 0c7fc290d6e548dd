#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QVector>
#include <QWidget>

/// Simulates a user with mouse and keyboard. Events are sent to the window, which delivers them to widgets
/// like those of a real device.
class InputPlayer : public QObject
{
    Q_OBJECT

public:
    explicit InputPlayer(QObject *parent = nullptr);

    void click(QWidget *target);
    /// Presses the mouse button over \a target until lift().
    void hold(QWidget *target);
    void type(QWidget *target, const QString &text);
    /// Draws through \a points, in the coordinates of \a target, evenly over \a milliseconds, and then emits
    /// finished(). With \a isHeld the button stays pressed until lift().
    void draw(QWidget *target, const QVector<QPointF> &points, int milliseconds, bool isHeld = false);
    void lift();
    /// Presses and releases \a keys one after another in the window of \a target, and then emits finished().
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
