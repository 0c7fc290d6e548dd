#pragma once

#include "flow/QVAttempts.h"
#include "flow/QVModeSurface.h"
#include "flow/QVTokenLife.h"

/// The common part of click button and invisible mode: their attempts, and the notifications of the host.
class QUARVO_CORE_EXPORT QVModeFlow : public QVAttemptObserver
{
public:
    ~QVModeFlow() override;
    Q_DISABLE_COPY(QVModeFlow)

    void setIdentity(const QVIdentity &identity) { m_identity = identity; }
    [[nodiscard]] const QVIdentity &identity() const { return m_identity; }

    /// Call when the host begins or ceases to offer another way to users who cannot do what the picture asks.
    void alternativeHasChanged() const { m_attempts.alternativeHasChanged(); }
    /// Ends all attempts and the popup without a callback.
    void abandon() { m_attempts.abandon(); }

protected:
    /// Both must outlive this.
    QVModeFlow(QVVerifyStyle style, const QVPopupPresenter &presenter, QVModeSurface &surface);

    void startAttempt() { m_attempts.start(m_identity, m_host.host()); }
    [[nodiscard]] QVAttempts &attempts() { return m_attempts; }
    [[nodiscard]] QVTokenLife &tokenLife() { return m_tokenLife; }

    void attemptShowsPopup(QVAttempt &attempt) override;
    void attemptEntersOutage(QVAttempt &attempt) override;
    void attemptFailsInPopup(QVAttempt &attempt, const QVError &error) override;
    [[nodiscard]] bool offersAlternative() const override;
    void attemptWantsAlternative(QVAttempt &attempt) override;

private:
    QVModeSurface &m_host;
    QVIdentity m_identity;
    QVTokenLife m_tokenLife;
    QVAttempts m_attempts;
};
