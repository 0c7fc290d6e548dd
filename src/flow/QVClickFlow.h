#pragma once

#include "flow/QVClickSurface.h"
#include "flow/QVModeFlow.h"
#include "settings/QVText.h"

/// The behaviour of a click button, independent of its look: its states and their texts, its presses, and the
/// results of its attempts.
class QUARVO_CORE_EXPORT QVClickFlow final : public QVModeFlow
{
public:
    /// Both must outlive this. The surface shows the first status by itself.
    QVClickFlow(const QVPopupPresenter &presenter, QVClickSurface &surface);

    [[nodiscard]] QVClickStatus clickStatus() const { return m_clickStatus; }
    [[nodiscard]] const QVText &statusText() const { return m_statusText; }
    /// Whether touches and keys have an effect.
    [[nodiscard]] bool takesInput() const;
    [[nodiscard]] bool isUnderWay() const;
    /// Whether the status has changed without an action of the user, so that it must be read out.
    [[nodiscard]] bool isNews() const;

    void clickButtonTouchDownAction();
    void clickButtonTouchDragInside();
    void clickButtonTouchDragOutside();
    void clickButtonTouchUpOutside();
    void clickButtonTouchUpInside();
    void reset();

private:
    void setClickStatus(QVClickStatus status);
    void attemptAsks(QVAttempt &attempt) override;
    void attemptDraws(QVAttempt &attempt) override;
    void attemptHasPassed(QVAttempt &attempt, const QString &token) override;
    void attemptHasFailed(QVAttempt &attempt, const QVError &error) override;
    void attemptHasClosed(QVAttempt &attempt, QVCloseReason reason) override;
    void beginTokenLife();
    void tokenHasExpired();

    /// May be destroyed together with this whenever the host is notified of a status.
    const QVWeakDelegate<QVClickSurface> m_surface;
    QVClickStatus m_clickStatus = QVClickStatusNormal;
    QVText m_statusText;
};
