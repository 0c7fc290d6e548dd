#include "modes/QVClickButtonPrivate.h"

#include "modes/QVClickButton.h"
#include "modes/QVClickButtonDelegate.h"
#include "modes/QVClickStatusView.h"
#include "modes/QVClickWaterRippleView.h"
#include "platform/QVScheduler.h"
#include "popup/QVHosts.h"
#include "popup/QVWidgetPresenter.h"
#include "service/QVErrorClassification.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVLanguageNotice.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVAccessibleRole.h"
#include "views/QVColors.h"
#include "views/QVLabel.h"
#include "views/QVSpokenMessage.h"

#include <QMetaMethod>
#include <QPointer>

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto successDelay = 500ms;
constexpr int labelInset = 10;

/// The text for a status; null if the text does not change.
QVText textOf(QVClickStatus status)
{
    switch (status) {
    case QVClickStatusNormal:
    case QVClickStatusTouching:
        return QVKey::touchCaptcha;
    case QVClickStatusVerifying:
        return QVKey::inVerify;
    case QVClickStatusDrawing:
        return QVKey::drawCaptcha;
    case QVClickStatusPassed:
        return QVKey::clickPass;
    case QVClickStatusFailed:
        break;
    }
    return {};
}

} // namespace

QVClickButtonPrivate::QVClickButtonPrivate(QVClickButton *button)
    : q(button)
    , m_attempts(QVVerifyStylePopup, QVWidgetPresenter::shared(), this)
{
    initAction();
}

QVClickButtonPrivate::~QVClickButtonPrivate() = default;

void QVClickButtonPrivate::initAction()
{
    setupSubviews();
    setClickStatus(QVClickStatusNormal);
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
    describe();
}

double QVClickButtonPrivate::paintedRadius() const
{
    return std::min<double>(cornerRadius, std::min(q->width(), q->height()) / 2.0);
}

void QVClickButtonPrivate::setClickStatus(QVClickStatus status)
{
    const bool changed = std::exchange(clickStatus, status) != status;
    if (status != QVClickStatusPassed)
        m_tokenLife.stop();
    clickStatusView->setClickStatus(status);
    if (const QVText text = textOf(status); !text.isNull())
        setStatusText(text);
    q->setAttribute(Qt::WA_TransparentForMouseEvents, !takesInput());
    q->setCursor(takesInput() ? Qt::PointingHandCursor : Qt::ArrowCursor);
    qv_setAccessibleBusy(q, isUnderWay());
    q->update();
    if (!changed)
        return;
    readOut();
    Q_EMIT q->clickStatusChanged(status);
}

void QVClickButtonPrivate::setStatusText(const QVText &text)
{
    m_statusText = text;
    showStatusText();
}

void QVClickButtonPrivate::showStatusText()
{
    const QString text = m_statusText.text();
    if (text == clickStatusLabel->text())
        return;
    clickStatusLabel->setText(text);
    q->setAccessibleName(text);
    describe();
}

void QVClickButtonPrivate::readOut()
{
    const bool isNews = clickStatus == QVClickStatusVerifying || clickStatus == QVClickStatusPassed ||
                        clickStatus == QVClickStatusFailed;
    if (isNews)
        m_spokenMessage->tell(m_statusText);
    else
        m_spokenMessage->hide();
}

void QVClickButtonPrivate::describe() const
{
    q->setAccessibleDescription(clickStatusLabel->isElided() ? clickStatusLabel->text() : QString());
}

bool QVClickButtonPrivate::takesInput() const
{
    return !isUnderWay() && clickStatus != QVClickStatusPassed;
}

bool QVClickButtonPrivate::isUnderWay() const
{
    return clickStatus == QVClickStatusVerifying || clickStatus == QVClickStatusDrawing;
}

QColor QVClickButtonPrivate::background() const
{
    if (clickStatus == QVClickStatusPassed)
        return QVColors::successBar;
    return clickStatus == QVClickStatusFailed ? QVColors::errorBar : QVColors::accent();
}

bool QVClickButtonPrivate::pointInside(QPointF point) const
{
    return takesInput() && q->hitButton(point.toPoint());
}

void QVClickButtonPrivate::beginTrackingWithTouch(QPointF point)
{
    const QPointer<QVClickButton> button(q);
    q->setDown(true);
    waterRippleView->beganWaterRippleAnimationAtPoint(point);
    clickButtonTouchDownAction();
    if (button && press.isTracking())
        Q_EMIT button->pressed();
}

void QVClickButtonPrivate::pressMoved(bool inside)
{
    q->setDown(inside);
    if (inside)
        clickButtonTouchDragInside();
    else
        clickButtonTouchDragOutside();
}

void QVClickButtonPrivate::pressEnded(bool inside)
{
    const QPointer<QVClickButton> button(q);
    q->setDown(false);
    if (!inside)
        clickButtonTouchUpOutside();
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

void QVClickButtonPrivate::clickButtonTouchDownAction()
{
    // The first request is sent on the release.
    QVConfigurationManager::prepareDeviceId();
    setClickStatus(QVClickStatusTouching);
}

void QVClickButtonPrivate::clickButtonTouchDragInside()
{
    if (clickStatus != QVClickStatusTouching)
        setClickStatus(QVClickStatusTouching);
}

void QVClickButtonPrivate::clickButtonTouchDragOutside()
{
    if (clickStatus != QVClickStatusNormal)
        setClickStatus(QVClickStatusNormal);
}

void QVClickButtonPrivate::clickButtonTouchUpOutside()
{
    setClickStatus(QVClickStatusNormal);
}

void QVClickButtonPrivate::clickButtonTouchUpInside()
{
    if (!takesInput())
        return;
    press.forget();
    m_attempts.start(identity, qv_hostOf(q));
}

void QVClickButtonPrivate::attemptAsks(QVAttempt & /*attempt*/)
{
    setClickStatus(QVClickStatusVerifying);
}

void QVClickButtonPrivate::attemptDraws(QVAttempt & /*attempt*/)
{
    setClickStatus(QVClickStatusDrawing);
}

void QVClickButtonPrivate::attemptShowsPopup(QVAttempt & /*attempt*/)
{
    // The status is unchanged here: a popup whose picture came with the answer to the click counts as
    // verifying.
    Q_EMIT q->popupOpened();
}

void QVClickButtonPrivate::attemptEntersOutage(QVAttempt & /*attempt*/)
{
    Q_EMIT q->outageStarted();
}

void QVClickButtonPrivate::attemptFailsInPopup(QVAttempt & /*attempt*/, const QVError &error)
{
    Q_EMIT q->popupFailed(error);
}

bool QVClickButtonPrivate::offersAlternative() const
{
    return q->isSignalConnected(QMetaMethod::fromSignal(&QVClickButton::alternativeRequested));
}

void QVClickButtonPrivate::attemptWantsAlternative(QVAttempt & /*attempt*/)
{
    Q_EMIT q->alternativeRequested();
}

void QVClickButtonPrivate::attemptHasPassed(QVAttempt & /*attempt*/, const QString &token)
{
    handleSuccess(token);
}

void QVClickButtonPrivate::attemptHasFailed(QVAttempt & /*attempt*/, const QVError &error)
{
    handleError(error);
}

void QVClickButtonPrivate::attemptHasClosed(QVAttempt & /*attempt*/, QVCloseReason reason)
{
    const QPointer<QVClickButton> button(q);
    setClickStatus(QVClickStatusNormal);
    if (button)
        Q_EMIT button->closed(reason);
}

void QVClickButtonPrivate::handleSuccess(const QString &token)
{
    // Not a timer of the button: the user has passed, so the host receives the token even after reset() or
    // the destruction of the button.
    QVScheduler::shared().schedule(successDelay, [button = QPointer(q), last = delegate, token] {
        if (button)
            button->d->beginTokenLife();
        if (auto *const receiver = button ? button->delegate() : last.get())
            receiver->clickButtonVerifyPassedWithToken(token);
        if (button)
            Q_EMIT button->passed(token);
    });
    setClickStatus(QVClickStatusPassed);
}

void QVClickButtonPrivate::beginTokenLife()
{
    // The host may have reset the button meanwhile.
    if (clickStatus == QVClickStatusPassed)
        m_tokenLife.start([this] { tokenHasExpired(); });
}

void QVClickButtonPrivate::tokenHasExpired()
{
    const QPointer<QVClickButton> button(q);
    setClickStatus(QVClickStatusNormal);
    if (button)
        Q_EMIT button->expired();
}

void QVClickButtonPrivate::handleError(const QVError &error)
{
    const QPointer<QVClickButton> button(q);
    setStatusText(QVErrorClassification::message(error));
    setClickStatus(QVClickStatusFailed);
    if (button)
        Q_EMIT button->failed(error);
}

void QVClickButtonPrivate::reset()
{
    const QPointer<QVClickButton> button(q);
    press.forget();
    q->setDown(false);
    const bool isUnderWay = m_attempts.areUnderWay();
    // This gives the focus back to the host, which may then destroy the button.
    m_attempts.close(QVCloseReason::HostReset);
    if (button && !isUnderWay)
        setClickStatus(QVClickStatusNormal);
}
