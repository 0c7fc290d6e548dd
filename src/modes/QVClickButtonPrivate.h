#pragma once

#include "flow/QVAttempts.h"
#include "flow/QVTokenLife.h"
#include "modes/QVClickStatus.h"
#include "modes/QVPressTracker.h"
#include "settings/QVText.h"

#include <QColor>

#include <memory>

class QVClickButton;
class QVClickButtonDelegate;
class QVClickStatusView;
class QVClickWaterRippleView;
class QVLabel;
class QVSpokenMessage;

/// The behaviour of the click button: its states and looks, its presses, and the results of its attempts.
///
/// A change of status emits a signal, in which the host may destroy the button. So each step does its own
/// work before, and checks afterwards whether the button still exists.
class QVClickButtonPrivate final : public QVAttemptObserver, public QVPressTracker::Button
{
public:
    explicit QVClickButtonPrivate(QVClickButton *button);
    ~QVClickButtonPrivate() override;

    void setClickStatus(QVClickStatus status);
    [[nodiscard]] QColor background() const;
    void layoutSubviews() const;
    /// The corner radius, limited by the size of the button.
    [[nodiscard]] double paintedRadius() const;

    /// Whether touches and keys have an effect.
    [[nodiscard]] bool takesInput() const;
    [[nodiscard]] bool pointInside(QPointF point) const override;
    void beginTrackingWithTouch(QPointF point) override;
    void pressMoved(bool inside) override;
    void pressEnded(bool inside) override;
    /// Called when the button is hidden or disabled, or loses the focus, while it is pressed.
    void pressIsTakenAway();
    void clickButtonTouchDownAction();
    void clickButtonTouchDragInside();
    void clickButtonTouchDragOutside();
    void clickButtonTouchUpOutside();
    void clickButtonTouchUpInside();

    void reset();
    void alternativeHasChanged() const { m_attempts.alternativeHasChanged(); }
    /// Ends the attempt and its popup without a signal.
    void abandon() { m_attempts.abandon(); }

    void attemptAsks(QVAttempt &attempt) override;
    void attemptDraws(QVAttempt &attempt) override;
    void attemptShowsPopup(QVAttempt &attempt) override;
    void attemptEntersOutage(QVAttempt &attempt) override;
    void attemptFailsInPopup(QVAttempt &attempt, const QVError &error) override;
    [[nodiscard]] bool offersAlternative() const override;
    void attemptWantsAlternative(QVAttempt &attempt) override;
    void attemptHasPassed(QVAttempt &attempt, const QString &token) override;
    void attemptHasFailed(QVAttempt &attempt, const QVError &error) override;
    void attemptHasClosed(QVAttempt &attempt, QVCloseReason reason) override;

    QVClickButton *const q;
    QVWeakDelegate<QVClickButtonDelegate> delegate;
    QVIdentity identity;
    QVClickWaterRippleView *waterRippleView = nullptr;
    QVClickStatusView *clickStatusView = nullptr;
    QVLabel *clickStatusLabel = nullptr;
    QVClickStatus clickStatus = QVClickStatusNormal;
    QVPressTracker press{*this};
    bool showsFocus = false;
    int cornerRadius = 0;

private:
    void initAction();
    void setupSubviews();
    void setStatusText(const QVText &text);
    void showStatusText();
    /// Makes screen readers read the status out. They do not notice changes without an action of the user.
    void readOut();
    /// Sets the whole text as the accessible description if its end is cut off.
    void describe() const;
    [[nodiscard]] bool isUnderWay() const;
    void handleSuccess(const QString &token);
    void beginTokenLife();
    void tokenHasExpired();
    void handleError(const QVError &error);

    QVText m_statusText;
    QVSpokenMessage *m_spokenMessage = nullptr;
    QVTokenLife m_tokenLife;
    QVAttempts m_attempts;
};
