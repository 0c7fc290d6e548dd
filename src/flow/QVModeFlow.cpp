#include "flow/QVModeFlow.h"

QVModeFlow::QVModeFlow(QVVerifyStyle style, const QVPopupPresenter &presenter, QVModeSurface &surface)
    : m_host(surface)
    , m_attempts(style, presenter, this)
{
}

QVModeFlow::~QVModeFlow() = default;

void QVModeFlow::attemptShowsPopup(QVAttempt & /*attempt*/)
{
    m_host.popupHasOpened();
}

void QVModeFlow::attemptEntersOutage(QVAttempt & /*attempt*/)
{
    m_host.outageHasStarted();
}

void QVModeFlow::attemptFailsInPopup(QVAttempt & /*attempt*/, const QVError &error)
{
    m_host.popupHasFailed(error);
}

bool QVModeFlow::offersAlternative() const
{
    return m_host.offersAlternative();
}

void QVModeFlow::attemptWantsAlternative(QVAttempt & /*attempt*/)
{
    m_host.alternativeIsWanted();
}
