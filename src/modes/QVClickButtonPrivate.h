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

/// What the click button does, apart from being a widget: its states and looks, its presses, and what
/// becomes of the attempts that it starts.
///
/// A status change tells the host, which may then destroy the button: whatever a step does, it does
/// before, and looks at the button again afterwards.
class QVClickButtonPrivate final : public QVAttemptObserver, public QVPressTracker::Button
{
public:
    explicit QVClickButtonPrivate(QVClickButton *button);
    ~QVClickButtonPrivate() override;

    void setClickStatus(QVClickStatus status);
    [[nodiscard]] QColor background() const;
    void layoutSubviews() const;
    /// As far as the button's size allows it.
    [[nodiscard]] double paintedRadius() const;

    /// Whether touches and keys are heard.
    [[nodiscard]] bool takesInput() const;
    [[nodiscard]] bool pointInside(QPointF point) const override;
    void beginTrackingWithTouch(QPointF point) override;
    void pressMoved(bool inside) override;
    void pressEnded(bool inside) override;
    /// The button was hidden or disabled, or lost the focus, while it was pressed.
    void pressIsTakenAway();
    void clickButtonTouchDownAction();
    void clickButtonTouchDragInside();
    void clickButtonTouchDragOutside();
    void clickButtonTouchUpOutside();
    void clickButtonTouchUpInside();

    void reset();
    void alternativeHasChanged() const { m_attempts.alternativeHasChanged(); }
    /// Ends the attempt without a word, and the popup with it.
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
    /// Tells screen readers of what happened, which nothing else does when it happens by itself.
    void readOut();
    /// Offers screen readers the text where its end is not shown.
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
