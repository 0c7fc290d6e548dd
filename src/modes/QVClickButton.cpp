#include "modes/QVClickButton.h"

#include "modes/QVAlternative.h"
#include "modes/QVClickButtonDelegate.h"
#include "modes/QVClickButtonPrivate.h"
#include "platform/QVMainThread.h"
#include "settings/QVSystemFont.h"
#include "views/QVLabel.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QTextDocument>
#include <QToolTip>
#include <QTouchEvent>

#include <algorithm>

namespace {

constexpr QSize usualSize(300, 44);
constexpr QSize smallestSize(120, 40);
constexpr QColor hoverTint(255, 255, 255, 30);
constexpr float disabledOpacity = 0.5;

bool pressesAtOnce(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Select;
}

bool isPressKey(int key)
{
    return key == Qt::Key_Space || pressesAtOnce(key);
}

} // namespace

QVClickButton::QVClickButton(QWidget *parent)
    : QAbstractButton(parent)
    , d(std::make_unique<QVClickButtonPrivate>(this))
{
    qv_mayCall(Q_FUNC_INFO);
    // The button handles touches itself. If a widget of the host around it accepted them, Qt would not make
    // mouse events for the button of them.
    setAttribute(Qt::WA_AcceptTouchEvents);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    // All ways of activating a button emit clicked().
    connect(this, &QAbstractButton::clicked, this, [this] { d->clickButtonTouchUpInside(); });
}

QVClickButton::~QVClickButton()
{
    // Without an application object nothing is on screen.
    if (!QCoreApplication::instance())
        return;
    // Before the base destructors run: the popup may give the focus back to this button, and the host may
    // click it when it loses the focus.
    d->flow.abandon();
    clearFocus();
}

QVClickButtonDelegate *QVClickButton::delegate() const
{
    return d->delegate.get();
}

void QVClickButton::setDelegate(QVClickButtonDelegate *delegate)
{
    if (!qv_mayCall(Q_FUNC_INFO))
        return;
    d->delegate = delegate;
}

QString QVClickButton::vid() const
{
    return d->flow.identity().ownVid;
}

void QVClickButton::setVid(const QString &vid)
{
    if (!qv_mayCall(Q_FUNC_INFO))
        return;
    d->flow.setIdentity({vid, scene()});
}

QString QVClickButton::scene() const
{
    return d->flow.identity().ownScene;
}

void QVClickButton::setScene(const QString &scene)
{
    if (!qv_mayCall(Q_FUNC_INFO))
        return;
    d->flow.setIdentity({vid(), scene});
}

int QVClickButton::cornerRadius() const
{
    return d->cornerRadius;
}

void QVClickButton::setCornerRadius(int radius)
{
    if (!qv_mayCall(Q_FUNC_INFO))
        return;
    d->cornerRadius = std::max(0, radius);
    d->layoutSubviews();
    update();
}

QVClickStatus QVClickButton::clickStatus() const
{
    return d->flow.clickStatus();
}

QString QVClickButton::statusText() const
{
    return d->clickStatusLabel->text();
}

QSize QVClickButton::sizeHint() const
{
    return {usualSize.width(), qRound(usualSize.height() * qv_textScale())};
}

QSize QVClickButton::minimumSizeHint() const
{
    return smallestSize;
}

void QVClickButton::reset()
{
    if (!qv_mayCall(Q_FUNC_INFO))
        return;
    d->reset();
}

bool QVClickButton::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
        if (!isEnabled())
            return true;
        [[fallthrough]];
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        d->press.takeTouch(*static_cast<QTouchEvent *>(event));
        return true;
    case QEvent::ToolTip:
        if (!d->clickStatusLabel->isElided())
            break;
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(),
                           Qt::convertFromPlainText(statusText()), this);
        return true;
    default:
        break;
    }
    if (event->type() == QEvent::WindowDeactivate)
        d->pressIsTakenAway();
    return QAbstractButton::event(event);
}

void QVClickButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const double radius = d->paintedRadius();
    painter.setRenderHint(QPainter::Antialiasing, radius > 0);
    painter.setPen(Qt::NoPen);
    QColor ground = d->background();
    if (!isEnabled())
        ground.setAlphaF(disabledOpacity);
    painter.setBrush(ground);
    painter.drawRoundedRect(rect(), radius, radius);
    if (underMouse() && isEnabled() && d->flow.takesInput()) {
        painter.setBrush(hoverTint);
        painter.drawRoundedRect(rect(), radius, radius);
    }
}

void QVClickButton::resizeEvent(QResizeEvent *)
{
    d->layoutSubviews();
}

void QVClickButton::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && d->pointInside(event->position()))
        d->press.begin(event->position());
    else
        event->ignore();
}

void QVClickButton::mouseMoveEvent(QMouseEvent *event)
{
    if (d->press.isTracking())
        d->press.move(event->position());
    else
        event->ignore();
}

void QVClickButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && d->press.isTracking())
        d->press.end(event->position());
    else
        event->ignore();
}

void QVClickButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && d->press.isTracking()) {
        d->press.cancel();
        return;
    }
    if (!isPressKey(event->key())) {
        QAbstractButton::keyPressEvent(event);
        return;
    }
    // Accepted even while the button is busy, or the key would press the default button of the host's dialog.
    event->accept();
    if (event->isAutoRepeat() || d->press.isTracking() || !d->flow.takesInput())
        return;
    const QPointer<QVClickButton> self(this);
    const QPointF centre = QRectF(rect()).center();
    d->press.begin(centre);
    // The host may have reset or disabled the button in answer.
    if (self && d->press.isTracking() && pressesAtOnce(event->key()))
        d->press.end(centre);
}

void QVClickButton::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Space) {
        QAbstractButton::keyReleaseEvent(event);
        return;
    }
    event->accept();
    if (!event->isAutoRepeat())
        d->press.end(QRectF(rect()).center());
}

void QVClickButton::focusOutEvent(QFocusEvent *event)
{
    QAbstractButton::focusOutEvent(event);
    d->pressIsTakenAway();
}

void QVClickButton::hideEvent(QHideEvent *event)
{
    QAbstractButton::hideEvent(event);
    d->pressIsTakenAway();
}

void QVClickButton::changeEvent(QEvent *event)
{
    QAbstractButton::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        d->pressIsTakenAway();
}

void QVClickButton::connectNotify(const QMetaMethod &signal)
{
    qv_followAlternative(this, signal, [this] { d->flow.alternativeHasChanged(); });
}

void QVClickButton::disconnectNotify(const QMetaMethod &signal)
{
    qv_followAlternative(this, signal, [this] { d->flow.alternativeHasChanged(); });
}
