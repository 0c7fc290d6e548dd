#pragma once

#include "flow/QVClickSurface.h"
#include "flow/QVModeFlow.h"
#include "settings/QVText.h"

/// What a click button does, whatever it looks like: its states and their texts, what a press means, and
/// what becomes of the attempts that it starts.
class QUARVO_CORE_EXPORT QVClickFlow final : public QVModeFlow
{
public:
    /// Both outlive this. A surface shows the first status by itself.
    QVClickFlow(const QVPopupPresenter &presenter, QVClickSurface &surface);

    [[nodiscard]] QVClickStatus clickStatus() const { return m_clickStatus; }
    [[nodiscard]] const QVText &statusText() const { return m_statusText; }
    /// Whether touches and keys are heard.
    [[nodiscard]] bool takesInput() const;
    [[nodiscard]] bool isUnderWay() const;
    /// Whether the status came by itself, so that screen readers have to be told of it.
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

    /// It may be destroyed, and this with it, whenever the host is told of a status.
    const QVWeakDelegate<QVClickSurface> m_surface;
    QVClickStatus m_clickStatus = QVClickStatusNormal;
    QVText m_statusText;
};
