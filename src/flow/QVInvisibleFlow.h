#pragma once

#include "flow/QVInvisibleSurface.h"
#include "flow/QVModeFlow.h"

/// The behaviour of invisible mode, independent of the look of its badge: the results of the attempts that
/// the host starts, and when the badge is shown.
///
/// The host may destroy the front-end in any callback: each step does its own work before it calls back.
class QUARVO_CORE_EXPORT QVInvisibleFlow final : public QVModeFlow
{
public:
    /// Both must outlive this.
    QVInvisibleFlow(const QVPopupPresenter &presenter, QVInvisibleSurface &surface);

    void startInsivible();
    void reset();

private:
    void attemptAsks(QVAttempt &attempt) override;
    void attemptIsAnswered(QVAttempt &attempt) override;
    void attemptHasPassed(QVAttempt &attempt, const QString &token) override;
    void attemptHasFailed(QVAttempt &attempt, const QVError &error) override;
    void attemptHasClosed(QVAttempt &attempt, QVCloseReason reason) override;
    /// Called at each end of an attempt.
    void attemptHasEnded();
    void beginTokenLife();

    QVInvisibleSurface &m_surface;
};
