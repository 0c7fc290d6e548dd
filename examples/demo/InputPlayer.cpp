#include "demo/InputPlayer.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>

namespace {

// The rate at which a held key repeats.
constexpr int betweenKeysMilliseconds = 30;

void sendKey(QWidget *target, int key, const QString &text)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QApplication::sendEvent(target->window()->windowHandle(), &event);
    }
}

void sendMouse(QWidget *target, const QPointF &position, QEvent::Type type)
{
    QWidget *const top = target->window();
    const QPointF inWindow = target->mapTo(top, position);
    const bool isMove = type == QEvent::MouseMove;
    const bool isRelease = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, inWindow, top->mapToGlobal(inWindow), isMove ? Qt::NoButton : Qt::LeftButton,
                      isRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(top->windowHandle(), &event);
}

} // namespace

InputPlayer::InputPlayer(QObject *parent)
    : QObject(parent)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &InputPlayer::step);
    m_keyTimer.setInterval(betweenKeysMilliseconds);
    connect(&m_keyTimer, &QTimer::timeout, this, &InputPlayer::pressNext);
}

void InputPlayer::click(QWidget *target)
{
    const QPointer<QWidget> guard(target);
    const QPointF centre = QRectF(target->rect()).center();
    sendMouse(target, centre, QEvent::MouseButtonPress);
    if (guard)
        sendMouse(target, centre, QEvent::MouseButtonRelease);
}

void InputPlayer::hold(QWidget *target)
{
    m_target = target;
    m_points = {QRectF(target->rect()).center()};
    sendMouse(target, m_points.constLast(), QEvent::MouseButtonPress);
}

void InputPlayer::type(QWidget *target, const QString &text)
{
    click(target);
    for (const QChar letter : text)
        sendKey(target, 0, QString(letter));
}

void InputPlayer::draw(QWidget *target, const QVector<QPointF> &points, int milliseconds, bool isHeld)
{
    m_target = target;
    m_points = points;
    m_next = 0;
    m_isHeld = isHeld;
    m_timer.start(static_cast<int>(milliseconds / qMax<qsizetype>(1, points.size() - 1)));
    step();
}

void InputPlayer::step()
{
    if (m_target && m_next < m_points.size()) {
        sendMouse(m_target, m_points[m_next], m_next == 0 ? QEvent::MouseButtonPress : QEvent::MouseMove);
        ++m_next;
        return;
    }
    m_timer.stop();
    if (!m_isHeld)
        lift();
    Q_EMIT finished();
}

void InputPlayer::lift()
{
    if (m_target)
        sendMouse(m_target, m_points.constLast(), QEvent::MouseButtonRelease);
    m_target = nullptr;
}

void InputPlayer::press(QWidget *target, const QVector<int> &keys)
{
    m_target = target;
    m_keys = keys;
    m_keyTimer.start();
}

void InputPlayer::pressNext()
{
    if (m_target && !m_keys.isEmpty()) {
        sendKey(m_target, m_keys.takeFirst(), {});
        return;
    }
    m_keyTimer.stop();
    m_target = nullptr;
    Q_EMIT finished();
}
