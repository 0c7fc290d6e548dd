#pragma once

#include "flow/QVClickFlow.h"
#include "modes/QVPressTracker.h"

#include <QColor>

#include <memory>

class QVClickButton;
class QVClickButtonDelegate;
class QVClickStatusView;
class QVFocusRing;
class QVClickWaterRippleView;
class QVLabel;
class QVSpokenMessage;

/// The look and the presses of the click button, and the notifications of the host. QVClickFlow decides on
/// the states.
///
/// A change of status emits a signal, in which the host may destroy the button. So each step does its own
/// work before, and checks afterwards whether the button still exists.
class QVClickButtonPrivate final : public QVClickSurface, public QVPressTracker::Button
{
public:
    explicit QVClickButtonPrivate(QVClickButton *button);
    ~QVClickButtonPrivate() override;

    [[nodiscard]] QColor background() const;
    void layoutSubviews() const;
    /// The corner radius, limited by the size of the button.
    [[nodiscard]] double paintedRadius() const;

    [[nodiscard]] bool pointInside(QPointF point) const override;
    void beginTrackingWithTouch(QPointF point) override;
    void pressMoved(bool inside) override;
    void pressEnded(bool inside) override;
    /// Called when the button is hidden or disabled, or loses the focus, while it is pressed.
    void pressIsTakenAway();
    void clickButtonTouchUpInside();

    void reset();

    void showClickStatus() override;
    void clickStatusHasChanged(QVClickStatus status) override;
    [[nodiscard]] QObject *host() const override;
    [[nodiscard]] bool offersAlternative() const override;
    [[nodiscard]] TellToken tellToken() const override;
    void popupHasOpened() override;
    void outageHasStarted() override;
    void popupHasFailed(const QVError &error) override;
    void alternativeIsWanted() override;
    void hasFailed(const QVError &error) override;
    void hasClosed(QVCloseReason reason) override;
    void hasExpired() override;

    QVClickButton *const q;
    QVWeakDelegate<QVClickButtonDelegate> delegate;
    QVClickFlow flow;
    QVClickWaterRippleView *waterRippleView = nullptr;
    QVClickStatusView *clickStatusView = nullptr;
    QVFocusRing *focusRing = nullptr;
    QVLabel *clickStatusLabel = nullptr;
    QVPressTracker press{*this};
    int cornerRadius = 0;

private:
    void initAction();
    void setupSubviews();
    void showStatusText();
    /// Makes screen readers read the status out. They do not notice changes without an action of the user.
    void readOut();
    /// Sets the whole text as the accessible description if its end is cut off.
    void describe() const;

    QVSpokenMessage *m_spokenMessage = nullptr;
};
