#include "views/QVTouchButton.h"

#include <QKeyEvent>
#include <QPointer>
#include <QTouchEvent>

QVTouchButton::QVTouchButton(QWidget *parent)
    : QAbstractButton(parent)
{
    setAttribute(Qt::WA_AcceptTouchEvents);
    setAttribute(Qt::WA_Hover);
    // Not Qt::ClickFocus: a tap must not take the focus away from the field that the user types in.
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QAbstractButton::pressed, this, [this] { setHighlighted(true); });
    connect(this, &QAbstractButton::released, this, [this] { setHighlighted(false); });
}

void QVTouchButton::setHighlighted(bool highlighted)
{
    setDown(highlighted);
}

bool QVTouchButton::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        return takeTouch(*static_cast<QTouchEvent *>(event));
    default:
        return QAbstractButton::event(event);
    }
}

bool QVTouchButton::takeTouch(QTouchEvent &event)
{
    // A disabled button takes touches, too, as it takes clicks: they must not go to the widget below.
    const bool isInside = event.pointCount() > 0 && hitButton(event.point(0).position().toPoint());
    if (event.type() == QEvent::TouchBegin && !isInside) {
        event.ignore();
        return true;
    }
    event.accept();
    if (event.type() == QEvent::TouchBegin)
        m_isTouched = true;
    if (event.type() == QEvent::TouchCancel)
        m_isTouched = false;
    touchMoved(isInside && m_isTouched && isEnabled() && isVisible());
    if (event.type() == QEvent::TouchEnd)
        touchEnded();
    return true;
}

void QVTouchButton::touchMoved(bool isInside)
{
    if (isInside == isDown())
        return;
    setDown(isInside);
    if (isInside)
        Q_EMIT pressed();
    else
        Q_EMIT released();
}

void QVTouchButton::touchEnded()
{
    if (!isDown())
        return;
    const QPointer<QVTouchButton> self(this);
    touchMoved(false);
    if (self)
        Q_EMIT clicked();
}

void QVTouchButton::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter) {
        QAbstractButton::keyPressEvent(event);
        return;
    }
    event->accept();
    if (!event->isAutoRepeat())
        click();
}

void QVTouchButton::hideEvent(QHideEvent *event)
{
    // When the button is shown again, the finger of an old touch may still be down.
    m_isTouched = false;
    setDown(false);
    QAbstractButton::hideEvent(event);
}
