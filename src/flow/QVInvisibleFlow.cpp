#include "flow/QVInvisibleFlow.h"

#include <QCoreApplication>

QVInvisibleFlow::QVInvisibleFlow(const QVPopupPresenter &presenter, QVInvisibleSurface &surface)
    : QVModeFlow(QVVerifyStyleInvisible, presenter, surface)
    , m_surface(surface)
{
}

void QVInvisibleFlow::startInsivible()
{
    tokenLife().stop();
    startAttempt();
}

void QVInvisibleFlow::attemptAsks(QVAttempt &attempt)
{
    // Queued: the host may start in a focus handler while Qt destroys its window, when children can no longer
    // be added.
    const auto showBadge = [flow = QVWeakDelegate<QVInvisibleFlow>(this),
                            started = attempt.weak_from_this()] {
        const auto asking = started.lock();
        if (flow && asking && asking->isAsking() && asking->isHostShown())
            flow.get()->m_surface.showBadge(asking->qv_controllerHost());
    };
    QMetaObject::invokeMethod(QCoreApplication::instance(), showBadge, Qt::QueuedConnection);
}

void QVInvisibleFlow::attemptIsAnswered(QVAttempt &attempt)
{
    m_surface.removeBadge();
    attempts().replacePopup(&attempt);
}

void QVInvisibleFlow::attemptHasPassed(QVAttempt &attempt, const QString &token)
{
    attemptHasEnded();
    // The user has passed, so the host receives the token even after reset() or the destruction of the
    // front-end.
    const auto report = [flow = QVWeakDelegate<QVInvisibleFlow>(this), tell = m_surface.tellToken(), token] {
        if (flow)
            flow.get()->beginTokenLife();
        tell(token);
    };
    const auto passed = [flow = QVWeakDelegate<QVInvisibleFlow>(this), report] {
        if (flow)
            flow.get()->m_surface.removeBadge();
        if (flow)
            flow.get()->attempts().replacePopup(nullptr);
        report();
    };
    // A popup has shown the user already that they have passed.
    if (attempt.popup() || !m_surface.passBadge(attempt.qv_controllerHost(), passed))
        report();
}

void QVInvisibleFlow::attemptHasFailed(QVAttempt & /*attempt*/, const QVError &error)
{
    attemptHasEnded();
    m_surface.hasFailed(error);
}

void QVInvisibleFlow::attemptHasClosed(QVAttempt & /*attempt*/, QVCloseReason reason)
{
    attemptHasEnded();
    m_surface.hasClosed(reason);
}

void QVInvisibleFlow::attemptHasEnded()
{
    // All attempts share the badge.
    if (!attempts().areAsking())
        m_surface.removeBadge();
}

void QVInvisibleFlow::beginTokenLife()
{
    tokenLife().start([this] { m_surface.hasExpired(); });
}

void QVInvisibleFlow::reset()
{
    tokenLife().stop();
    m_surface.removeBadge();
    attempts().close(QVCloseReason::HostReset);
}
