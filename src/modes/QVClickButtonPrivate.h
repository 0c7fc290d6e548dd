#pragma once

#include "flow/QVAttemptDeadline.h"
#include "flow/QVClickSequence.h"
#include "modes/QVClickStatus.h"
#include "popup/QVViewControllerDelegate.h"

#include <QPointer>

#include <memory>

class QTouchEvent;
class QVClickButton;
class QVClickButtonDelegate;
class QVClickStatusLabel;
class QVClickStatusView;
class QVClickWaterRippleView;
class QVHostWatch;
class QVSpokenMessage;
class QVViewController;

/// What the click button does, apart from being a widget: its states, its conversation with the
/// service and its popup.
///
/// A status change tells the host, which may then destroy the button: whatever a step does, it does
/// before, and looks at the button again afterwards.
class QVClickButtonPrivate final : public QVViewControllerDelegate
{
public:
    explicit QVClickButtonPrivate(QVClickButton *button);
    ~QVClickButtonPrivate() override;

    void setClickStatus(QVClickStatus status);
    /// Whether touches and keys are heard.
    [[nodiscard]] bool takesInput() const;
    [[nodiscard]] QColor background() const;
    void layoutSubviews() const;

    void beginTracking(const QPointF &point);
    void continueTracking(const QPointF &point);
    void endTracking(const QPointF &point);
    void takeTouch(QTouchEvent &event);
    /// A touch that will never be lifted counts as lifted outside.
    void cancelTracking();
    void clickButtonTouchDownAction();
    void clickButtonTouchDragInside();
    void clickButtonTouchDragOutside();
    void clickButtonTouchUpOutside();
    void clickButtonTouchUpInside();

    void reset();
    void dismissPopup();
    void qv_controllerPassedAction() override;
    void quarvoControllerVerifySuccessWithToken(const QString &token) override;
    void qv_controllerCloseAction() override;
    void qv_controllerOutageAction() override;

    QVClickButton *const q;
    QVWeakDelegate<QVClickButtonDelegate> delegate;
    QVClickWaterRippleView *waterRippleView = nullptr;
    QVClickStatusView *clickStatusView = nullptr;
    QVClickStatusLabel *clickStatusLabel = nullptr;
    QVClickStatus clickStatus = QVClickStatusNormal;
    bool tracking = false;
    bool showsFocus = false;

private:
    void setupSubviews();
    void setStatusText(const QString &text);
    /// Tells screen readers of what happened, which nothing else does when it happens by itself.
    void readOut();
    /// Offers screen readers the text where its end is not shown.
    void describe() const;
    [[nodiscard]] bool isUnderWay() const;

    void requestOutageAction();
    void handleOutcome(const QVClickSequence::Outcome &outcome);
    void showVerifyControllerWithConfig(const QVClickSequence::Config &config,
                                        const QVClickSequence::Click &click);
    void popupShown(QVClickStatus status);
    void handleSuccess(const QString &token);
    void handleError(const QVError &error);
    void close();
    void attemptTimedOut(const QVError &error);
    void dropSequence();

    QVSpokenMessage *m_spokenMessage = nullptr;
    std::weak_ptr<QVViewController> m_qv_controller;
    std::shared_ptr<QVClickSequence> m_sequence;
    QVAttemptDeadline m_deadline;
    /// The window around the button while the service is asked; later the popup watches for itself.
    std::unique_ptr<QVHostWatch> m_hostWatch;
};
