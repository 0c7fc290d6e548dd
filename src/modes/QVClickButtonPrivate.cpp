#include "modes/QVClickButtonPrivate.h"

#include "modes/QVClickButton.h"
#include "modes/QVClickButtonDelegate.h"
#include "modes/QVClickStatusView.h"
#include "modes/QVClickWaterRippleView.h"
#include "platform/QVScheduler.h"
#include "popup/QVHosts.h"
#include "popup/QVWidgetPresenter.h"
#include "settings/QVColors.h"
#include "settings/QVLanguageNotice.h"
#include "views/QVAccessibleRole.h"
#include "views/QVFocusRing.h"
#include "views/QVLabel.h"
#include "views/QVSpokenMessage.h"

#include <QMetaMethod>
#include <QPointer>

#include <algorithm>

namespace {

constexpr int labelInset = 10;

} // namespace

QVClickButtonPrivate::QVClickButtonPrivate(QVClickButton *button)
    : q(button)
    , flow(QVWidgetPresenter::shared(), *this)
{
    initAction();
}

QVClickButtonPrivate::~QVClickButtonPrivate() = default;

void QVClickButtonPrivate::initAction()
{
    setupSubviews();
    showClickStatus();
    qv_followLanguage(q, [this] { showStatusText(); });
}

void QVClickButtonPrivate::setupSubviews()
{
    qv_setAccessibleRole(q, QAccessible::Button);
    waterRippleView = new QVClickWaterRippleView(q);
    clickStatusView = new QVClickStatusView(q);
    clickStatusLabel =
        new QVLabel({.pixelSize = 15, .mostLines = 2, .alignment = Qt::AlignLeft, .hasShadow = true},
                    QVColors::white, QAccessible::NoRole, q);
    // Created with the button: a host may start an attempt while Qt destroys its window, when children can no
    // longer be added.
    m_spokenMessage = new QVSpokenMessage(q);
    clickStatusView->setAttribute(Qt::WA_TransparentForMouseEvents);
    focusRing = new QVFocusRing(q);
    focusRing->setDark();
}

void QVClickButtonPrivate::layoutSubviews() const
{
    const int statusWidth = QVClickStatusView::defaultWidth();
    const int labelLeft = statusWidth + labelInset;
    waterRippleView->setGeometry(q->rect());
    clickStatusView->setGeometry(0, 0, statusWidth, q->height());
    clickStatusLabel->setGeometry(labelLeft, 0, q->width() - labelLeft - labelInset, q->height());
    waterRippleView->setCornerRadius(paintedRadius());
    clickStatusView->setCornerRadius(paintedRadius());
    focusRing->fit(paintedRadius());
    describe();
}

double QVClickButtonPrivate::paintedRadius() const
{
    return std::min<double>(cornerRadius, std::min(q->width(), q->height()) / 2.0);
}

void QVClickButtonPrivate::showClickStatus()
{
    clickStatusView->setClickStatus(flow.clickStatus());
    showStatusText();
    q->setAttribute(Qt::WA_TransparentForMouseEvents, !flow.takesInput());
    q->setCursor(flow.takesInput() ? Qt::PointingHandCursor : Qt::ArrowCursor);
    qv_setAccessibleBusy(q, flow.isUnderWay());
    q->update();
}

void QVClickButtonPrivate::clickStatusHasChanged(QVClickStatus status)
{
    readOut();
    Q_EMIT q->clickStatusChanged(status);
}

void QVClickButtonPrivate::showStatusText()
{
    const QString text = flow.statusText().text();
    if (text == clickStatusLabel->text())
        return;
    clickStatusLabel->setText(text);
    q->setAccessibleName(text);
    describe();
}

void QVClickButtonPrivate::readOut()
{
    if (flow.isNews())
        m_spokenMessage->tell(flow.statusText());
    else
        m_spokenMessage->hide();
}

void QVClickButtonPrivate::describe() const
{
    q->setAccessibleDescription(clickStatusLabel->isElided() ? clickStatusLabel->text() : QString());
}

QColor QVClickButtonPrivate::background() const
{
    if (flow.clickStatus() == QVClickStatusPassed)
        return QVColors::successBar;
    return flow.clickStatus() == QVClickStatusFailed ? QVColors::errorBar : QVColors::accent();
}

bool QVClickButtonPrivate::pointInside(QPointF point) const
{
    return flow.takesInput() && q->hitButton(point.toPoint());
}

void QVClickButtonPrivate::beginTrackingWithTouch(QPointF point)
{
    const QPointer<QVClickButton> button(q);
    q->setDown(true);
    waterRippleView->beganWaterRippleAnimationAtPoint(point);
    flow.clickButtonTouchDownAction();
    if (button && press.isTracking())
        Q_EMIT button->pressed();
}

void QVClickButtonPrivate::pressMoved(bool inside)
{
    q->setDown(inside);
    if (inside)
        flow.clickButtonTouchDragInside();
    else
        flow.clickButtonTouchDragOutside();
}

void QVClickButtonPrivate::pressEnded(bool inside)
{
    const QPointer<QVClickButton> button(q);
    q->setDown(false);
    if (!inside)
        flow.clickButtonTouchUpOutside();
    if (button)
        Q_EMIT button->released();
    if (button && inside)
        Q_EMIT button->clicked();
}

void QVClickButtonPrivate::pressIsTakenAway()
{
    if (!press.isTracking())
        return;
    press.forget();
    // From the event loop: Qt still uses the widget, and the host may destroy it in a slot.
    QVScheduler::shared().schedule({}, [button = QPointer(q)] {
        if (button && button->clickStatus() == QVClickStatusTouching && !button->d->press.isTracking())
            button->d->pressEnded(false);
    });
}

void QVClickButtonPrivate::clickButtonTouchUpInside()
{
    press.forget();
    flow.clickButtonTouchUpInside();
}

QObject *QVClickButtonPrivate::host() const
{
    return qv_hostOf(q);
}

bool QVClickButtonPrivate::offersAlternative() const
{
    return q->isSignalConnected(QMetaMethod::fromSignal(&QVClickButton::alternativeRequested));
}

QVClickButtonPrivate::TellToken QVClickButtonPrivate::tellToken() const
{
    return [button = QPointer(q), last = delegate](const QString &token) {
        if (auto *const receiver = button ? button->delegate() : last.get())
            receiver->clickButtonVerifyPassedWithToken(token);
        if (button)
            Q_EMIT button->passed(token);
    };
}

void QVClickButtonPrivate::popupHasOpened()
{
    Q_EMIT q->popupOpened();
}

void QVClickButtonPrivate::outageHasStarted()
{
    Q_EMIT q->outageStarted();
}

void QVClickButtonPrivate::popupHasFailed(const QVError &error)
{
    Q_EMIT q->popupFailed(error);
}

void QVClickButtonPrivate::alternativeIsWanted()
{
    Q_EMIT q->alternativeRequested();
}

void QVClickButtonPrivate::hasFailed(const QVError &error)
{
    Q_EMIT q->failed(error);
}

void QVClickButtonPrivate::hasClosed(QVCloseReason reason)
{
    Q_EMIT q->closed(reason);
}

void QVClickButtonPrivate::hasExpired()
{
    Q_EMIT q->expired();
}

void QVClickButtonPrivate::reset()
{
    press.forget();
    q->setDown(false);
    flow.reset();
}
