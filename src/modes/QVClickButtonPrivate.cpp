#include "modes/QVClickButtonPrivate.h"

#include "modes/QVClickButton.h"
#include "modes/QVClickButtonDelegate.h"
#include "modes/QVClickStatusLabel.h"
#include "modes/QVClickStatusView.h"
#include "modes/QVClickWaterRippleView.h"
#include "platform/QVScheduler.h"
#include "popup/QVHostWatch.h"
#include "popup/QVViewController.h"
#include "service/QVClickResponseModel.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVAccessibleRole.h"
#include "views/QVColors.h"
#include "views/QVSpokenMessage.h"

#include <QTouchEvent>

#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto successDelay = 500ms;
constexpr int labelInset = 10;

/// The key of the text that goes with a status; null where the text stays.
QString textKey(QVClickStatus status)
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
{
    setupSubviews();
    setClickStatus(QVClickStatusNormal);
}

QVClickButtonPrivate::~QVClickButtonPrivate() = default;

void QVClickButtonPrivate::setupSubviews()
{
    qv_setAccessibleRole(q, QAccessible::Button);
    waterRippleView = new QVClickWaterRippleView(q);
    clickStatusView = new QVClickStatusView(q);
    clickStatusLabel = new QVClickStatusLabel(q);
    clickStatusView->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void QVClickButtonPrivate::layoutSubviews() const
{
    const int statusWidth = QVClickStatusView::defaultWidth();
    const int labelLeft = statusWidth + labelInset;
    waterRippleView->setGeometry(q->rect());
    clickStatusView->setGeometry(0, 0, statusWidth, q->height());
    clickStatusLabel->setGeometry(labelLeft, 0, q->width() - labelLeft - labelInset, q->height());
    describe();
}

void QVClickButtonPrivate::setClickStatus(QVClickStatus status)
{
    const bool changed = std::exchange(clickStatus, status) != status;
    clickStatusView->setClickStatus(status);
    clickStatusLabel->setGround(background());
    if (const QString key = textKey(status); !key.isNull())
        setStatusText(qv_localizedStringForKey(key));
    q->setAttribute(Qt::WA_TransparentForMouseEvents, !takesInput());
    qv_setAccessibleBusy(q, isUnderWay());
    q->update();
    if (!changed)
        return;
    readOut();
    Q_EMIT q->clickStatusChanged(status);
}

void QVClickButtonPrivate::setStatusText(const QString &text)
{
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
    if (!isNews) {
        delete std::exchange(m_spokenMessage, nullptr);
        return;
    }
    if (!m_spokenMessage)
        m_spokenMessage = new QVSpokenMessage(q);
    m_spokenMessage->tell(clickStatusLabel->text());
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
    return clickStatus == QVClickStatusFailed ? QVColors::errorBar : QVColors::accent;
}

void QVClickButtonPrivate::beginTracking(const QPointF &point)
{
    const QPointer<QVClickButton> button(q);
    tracking = true;
    q->setDown(true);
    waterRippleView->beganWaterRippleAnimationAtPoint(point);
    clickButtonTouchDownAction();
    if (button && tracking)
        Q_EMIT button->pressed();
}

void QVClickButtonPrivate::continueTracking(const QPointF &point)
{
    const bool inside = q->hitButton(point.toPoint());
    q->setDown(inside);
    if (inside)
        clickButtonTouchDragInside();
    else
        clickButtonTouchDragOutside();
}

void QVClickButtonPrivate::endTracking(const QPointF &point)
{
    if (!q->hitButton(point.toPoint())) {
        cancelTracking();
        return;
    }
    const QPointer<QVClickButton> button(q);
    tracking = false;
    q->setDown(false);
    Q_EMIT q->released();
    if (button)
        Q_EMIT button->clicked();
}

void QVClickButtonPrivate::takeTouch(QTouchEvent &event)
{
    if (event.type() == QEvent::TouchCancel || event.pointCount() == 0) {
        cancelTracking();
        return;
    }
    const QPointF point = event.points().constFirst().position();
    if (event.type() == QEvent::TouchBegin) {
        event.setAccepted(takesInput() && q->hitButton(point.toPoint()));
        if (event.isAccepted() && q->isEnabled())
            beginTracking(point);
    } else if (tracking && event.type() == QEvent::TouchUpdate) {
        continueTracking(point);
    } else if (tracking) {
        endTracking(point);
    }
}

void QVClickButtonPrivate::cancelTracking()
{
    if (!std::exchange(tracking, false))
        return;
    const QPointer<QVClickButton> button(q);
    q->setDown(false);
    clickButtonTouchUpOutside();
    if (button)
        Q_EMIT button->released();
}

void QVClickButtonPrivate::clickButtonTouchDownAction()
{
    // Requests follow when the finger is lifted.
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
    tracking = false;
    m_deadline.start([this](const QVError &error) { attemptTimedOut(error); });
    const auto controller = m_qv_controller.lock();
    if (!controller || !controller->canDirectlyShow()) {
        dismissPopup();
        requestOutageAction();
        return;
    }
    controller->displayWindow();
    popupShown(QVClickStatusDrawing);
}

void QVClickButtonPrivate::requestOutageAction()
{
    m_hostWatch = std::make_unique<QVHostWatch>(q->window());
    QObject::connect(m_hostWatch.get(), &QVHostWatch::ended, q, [this] { close(); });
    // The click answer may come after the button has gone.
    m_sequence = std::make_shared<QVClickSequence>(
        QStringLiteral("popup"), [button = QPointer(q)](const QVClickSequence::Outcome &outcome) {
            if (button)
                button->d->handleOutcome(outcome);
        });
    m_sequence->start();
    setClickStatus(QVClickStatusVerifying);
}

void QVClickButtonPrivate::handleOutcome(const QVClickSequence::Outcome &outcome)
{
    dropSequence();
    if (const auto *const passed = std::get_if<QVClickSequence::Passed>(&outcome)) {
        handleSuccess(passed->click->token());
    } else if (const auto *const failed = std::get_if<QVClickSequence::Failed>(&outcome)) {
        handleError(failed->error);
    } else if (const auto *const draw = std::get_if<QVClickSequence::Draw>(&outcome)) {
        // With its picture already chosen, the popup is still part of verifying.
        showVerifyControllerWithConfig(draw->config, draw->click);
        popupShown(QVClickStatusVerifying);
    } else {
        showVerifyControllerWithConfig(nullptr, nullptr);
        popupShown(QVClickStatusDrawing);
    }
}

void QVClickButtonPrivate::showVerifyControllerWithConfig(const QVClickSequence::Config &config,
                                                          const QVClickSequence::Click &click)
{
    m_qv_controller = QVViewController::showQvWithVerifyStyle(QVVerifyStylePopup, config, click, this, q);
}

void QVClickButtonPrivate::popupShown(QVClickStatus status)
{
    const QPointer<QVClickButton> button(q);
    if (status != clickStatus)
        setClickStatus(status);
    if (button)
        Q_EMIT button->popupOpened();
}

void QVClickButtonPrivate::handleSuccess(const QString &token)
{
    m_deadline.stop();
    // Not a timer of the button's: the user has passed, so neither reset() nor the button's end
    // takes the token from the host.
    QVScheduler::shared().schedule(successDelay, [button = QPointer(q), last = delegate, token] {
        if (auto *const receiver = button ? button->delegate() : last.get())
            receiver->clickButtonVerifyPassedWithToken(token);
        if (button)
            Q_EMIT button->passed(token);
    });
    setClickStatus(QVClickStatusPassed);
}

void QVClickButtonPrivate::handleError(const QVError &error)
{
    const QPointer<QVClickButton> button(q);
    m_deadline.stop();
    setStatusText(error.domain());
    setClickStatus(QVClickStatusFailed);
    if (button)
        Q_EMIT button->failed(error);
}

void QVClickButtonPrivate::qv_controllerPassedAction()
{
    // The token has been earned in time.
    m_deadline.stop();
}

void QVClickButtonPrivate::quarvoControllerVerifySuccessWithToken(const QString &token)
{
    // An answer that was on its way when the user closed the popup comes too late.
    if (isUnderWay())
        handleSuccess(token);
}

void QVClickButtonPrivate::qv_controllerCloseAction()
{
    close();
}

void QVClickButtonPrivate::qv_controllerOutageAction()
{
    Q_EMIT q->outageStarted();
}

void QVClickButtonPrivate::attemptTimedOut(const QVError &error)
{
    dropSequence();
    dismissPopup();
    handleError(error);
}

void QVClickButtonPrivate::reset()
{
    dismissPopup();
    close();
}

void QVClickButtonPrivate::close()
{
    const QPointer<QVClickButton> button(q);
    const bool ended = isUnderWay();
    m_deadline.stop();
    dropSequence();
    tracking = false;
    q->setDown(false);
    setClickStatus(QVClickStatusNormal);
    if (button && ended)
        Q_EMIT button->closed();
}

void QVClickButtonPrivate::dismissPopup()
{
    if (const auto controller = std::exchange(m_qv_controller, {}).lock())
        controller->dismissWindow();
}

void QVClickButtonPrivate::dropSequence()
{
    if (const auto sequence = std::exchange(m_sequence, nullptr))
        sequence->cancel();
    m_hostWatch.reset();
}
