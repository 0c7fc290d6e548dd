#include "flow/QVClickFlow.h"

#include "platform/QVScheduler.h"
#include "service/QVAPIRequestManager.h"
#include "service/QVErrorClassification.h"
#include "settings/QVLocalizationKeys.h"

#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto successDelay = 500ms;

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

QVClickFlow::QVClickFlow(const QVPopupPresenter &presenter, QVClickSurface &surface)
    : QVModeFlow(QVVerifyStylePopup, presenter, surface)
    , m_surface(&surface)
    , m_statusText(textOf(QVClickStatusNormal))
{
}

bool QVClickFlow::takesInput() const
{
    return !isUnderWay() && m_clickStatus != QVClickStatusPassed;
}

bool QVClickFlow::isUnderWay() const
{
    return m_clickStatus == QVClickStatusVerifying || m_clickStatus == QVClickStatusDrawing;
}

bool QVClickFlow::isNews() const
{
    return m_clickStatus == QVClickStatusVerifying || m_clickStatus == QVClickStatusPassed ||
           m_clickStatus == QVClickStatusFailed;
}

void QVClickFlow::setClickStatus(QVClickStatus status)
{
    const bool changed = std::exchange(m_clickStatus, status) != status;
    if (status != QVClickStatusPassed)
        tokenLife().stop();
    if (const QVText text = textOf(status); !text.isNull())
        m_statusText = text;
    const QVWeakDelegate<QVClickSurface> surface = m_surface;
    surface.get()->showClickStatus();
    if (changed && surface)
        surface.get()->clickStatusHasChanged(status);
}

void QVClickFlow::clickButtonTouchDownAction()
{
    // The first request is sent on the release.
    QVAPIRequestManager::prepare();
    setClickStatus(QVClickStatusTouching);
}

void QVClickFlow::clickButtonTouchDragInside()
{
    if (m_clickStatus != QVClickStatusTouching)
        setClickStatus(QVClickStatusTouching);
}

void QVClickFlow::clickButtonTouchDragOutside()
{
    if (m_clickStatus != QVClickStatusNormal)
        setClickStatus(QVClickStatusNormal);
}

void QVClickFlow::clickButtonTouchUpOutside()
{
    setClickStatus(QVClickStatusNormal);
}

void QVClickFlow::clickButtonTouchUpInside()
{
    if (takesInput())
        startAttempt();
}

void QVClickFlow::attemptAsks(QVAttempt & /*attempt*/)
{
    setClickStatus(QVClickStatusVerifying);
}

void QVClickFlow::attemptDraws(QVAttempt & /*attempt*/)
{
    // Not called for a popup whose picture came with the answer to the click: that counts as verifying.
    setClickStatus(QVClickStatusDrawing);
}

void QVClickFlow::attemptHasPassed(QVAttempt & /*attempt*/, const QString &token)
{
    // Not a timer of the button: the user has passed, so the host receives the token even after reset() or
    // the destruction of the button.
    QVScheduler::shared().schedule(
        successDelay, [flow = QVWeakDelegate<QVClickFlow>(this), tell = m_surface.get()->tellToken(), token] {
            if (flow)
                flow.get()->beginTokenLife();
            tell(token);
        });
    setClickStatus(QVClickStatusPassed);
}

void QVClickFlow::attemptHasFailed(QVAttempt & /*attempt*/, const QVError &error)
{
    const QVWeakDelegate<QVClickSurface> surface = m_surface;
    m_statusText = QVErrorClassification::message(error);
    setClickStatus(QVClickStatusFailed);
    if (surface)
        surface.get()->hasFailed(error);
}

void QVClickFlow::attemptHasClosed(QVAttempt & /*attempt*/, QVCloseReason reason)
{
    const QVWeakDelegate<QVClickSurface> surface = m_surface;
    setClickStatus(QVClickStatusNormal);
    if (surface)
        surface.get()->hasClosed(reason);
}

void QVClickFlow::beginTokenLife()
{
    // The host may have reset the button meanwhile.
    if (m_clickStatus == QVClickStatusPassed)
        tokenLife().start([this] { tokenHasExpired(); });
}

void QVClickFlow::tokenHasExpired()
{
    const QVWeakDelegate<QVClickSurface> surface = m_surface;
    setClickStatus(QVClickStatusNormal);
    if (surface)
        surface.get()->hasExpired();
}

void QVClickFlow::reset()
{
    const QVWeakDelegate<QVClickSurface> surface = m_surface;
    const bool wereUnderWay = attempts().areUnderWay();
    // This gives the focus back to the host, which may then destroy the button.
    attempts().close(QVCloseReason::HostReset);
    if (surface && !wereUnderWay)
        setClickStatus(QVClickStatusNormal);
}
