#pragma once

#include "flow/QVInvisibleSurface.h"
#include "flow/QVModeFlow.h"

/// What invisible mode does, whatever its badge looks like: what becomes of the attempts that the host
/// starts, and when the badge comes and goes.
///
/// The host may destroy the front-end in any callback: each step does its own work before it calls back.
class QUARVO_CORE_EXPORT QVInvisibleFlow final : public QVModeFlow
{
public:
    /// Both outlive this.
    QVInvisibleFlow(const QVPopupPresenter &presenter, QVInvisibleSurface &surface);

    void startInsivible();
    void reset();

private:
    void attemptAsks(QVAttempt &attempt) override;
    void attemptIsAnswered(QVAttempt &attempt) override;
    void attemptHasPassed(QVAttempt &attempt, const QString &token) override;
    void attemptHasFailed(QVAttempt &attempt, const QVError &error) override;
    void attemptHasClosed(QVAttempt &attempt, QVCloseReason reason) override;
    /// What all ends have in common.
    void attemptHasEnded();
    void beginTokenLife();

    QVInvisibleSurface &m_surface;
};
