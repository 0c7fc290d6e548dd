#pragma once

#include "flow/QVAttemptDeadline.h"
#include "flow/QVClickSequence.h"
#include "flow/QVCloseReason.h"
#include "flow/QVViewControllerDelegate.h"
#include "platform/QuarvoCoreExport.h"

#include <QPointer>

#include <memory>

class QVAttempt;
class QVPopup;
class QVPopupPresenter;

/// The callbacks of an attempt to the front-end that has started it. In each the front-end may be destroyed,
/// the attempt closed, or another one started.
class QVAttemptObserver : public QVDelegate
{
public:
    /// The service is about to be asked.
    virtual void attemptAsks(QVAttempt &attempt) = 0;
    /// The service has answered. The call for the answer follows.
    virtual void attemptIsAnswered(QVAttempt &attempt) { Q_UNUSED(attempt) }
    /// A popup is about to be shown whose picture does not come from the answer to the click.
    virtual void attemptDraws(QVAttempt &attempt) { Q_UNUSED(attempt) }
    /// The popup is on screen.
    virtual void attemptShowsPopup(QVAttempt &attempt) = 0;
    virtual void attemptEntersOutage(QVAttempt &attempt) = 0;
    /// Something failed inside the popup, where the user may try again.
    virtual void attemptFailsInPopup(QVAttempt &attempt, const QVError &error) = 0;
    /// Whether the host has another way for users who cannot do what the picture asks.
    [[nodiscard]] virtual bool offersAlternative() const = 0;
    /// The user asks for that other way. The attempt goes on.
    virtual void attemptWantsAlternative(QVAttempt &attempt) = 0;

    // The ends. Exactly one of them is called for each attempt.
    virtual void attemptHasPassed(QVAttempt &attempt, const QString &token) = 0;
    virtual void attemptHasFailed(QVAttempt &attempt, const QVError &error) = 0;
    virtual void attemptHasClosed(QVAttempt &attempt, QVCloseReason reason) = 0;
};

/// One verification by click or in invisible mode, from its start to its end. Owns the requests before the
/// popup and the deadline, and refers to the popup while the user draws.
///
/// It ends exactly once, as passed, failed or closed, in whatever order things happen. If its owner destroys
/// it, it ends without a callback.
class QUARVO_CORE_EXPORT QVAttempt final : public QVViewControllerDelegate,
                                           public std::enable_shared_from_this<QVAttempt>
{
public:
    QVAttempt(QVVerifyStyle style, QVIdentity identity, const QVPopupPresenter &presenter, QObject *host,
              QVAttemptObserver *observer);
    ~QVAttempt() override;
    Q_DISABLE_COPY(QVAttempt)

    /// Shows the hidden popup \a hidden, which has a picture, again. If it is null, asks the service.
    void start(const std::shared_ptr<QVPopup> &hidden);
    /// Ends the attempt. A popup that the user closed may be shown again by the next attempt; in other
    /// cases it is dismissed.
    void close(QVCloseReason reason);
    /// Ends the attempt without a callback, and dismisses its popup.
    void abandon();

    /// Leaves the popup to the next attempt: the user has closed it, or the window of this attempt has gone
    /// and the close is about to be reported.
    void leavePopup() { m_popup.reset(); }

    /// Whether the host is on screen. True if there is no host.
    [[nodiscard]] bool isHostShown() const;
    [[nodiscard]] bool hasEnded() const { return m_hasEnded; }
    /// Whether the service is being asked.
    [[nodiscard]] bool isAsking() const { return m_sequence != nullptr; }
    [[nodiscard]] std::shared_ptr<QVPopup> popup() const { return m_popup.lock(); }

    [[nodiscard]] QObject *qv_controllerHost() const override { return m_host; }
    [[nodiscard]] QVIdentity qv_controllerIdentity() const override { return m_identity; }
    void qv_controllerShowAction(const std::shared_ptr<QVPopup> &popup) override;
    void qv_controllerPassedAction() override;
    void quarvoControllerVerifySuccessWithToken(const QString &token) override;
    void qv_controllerCloseAction() override;
    void qv_controllerDestroyedAction() override;
    void qv_controllerOutageAction() override;
    void qv_controllerFailedAction(const QVError &error) override;
    [[nodiscard]] bool qv_controllerOffersAlternative() const override;
    void qv_controllerAlternativeAction() override;

private:
    void displayAgain(const std::shared_ptr<QVPopup> &popup);
    void requestOutageAction();
    void handleOutcome(const QVClickSequence::Outcome &outcome);
    void showVerifyControllerWithConfig(const QVClickSequence::Config &config,
                                        const QVClickSequence::Click &click);
    void popupIsShown();
    void handleSuccess(const QString &token);
    void handleError(const QVError &error);
    /// Ends everything under way. Returns false if the attempt had ended before.
    [[nodiscard]] bool end();
    void dismissPopup();
    /// Null once the front-end was destroyed or the attempt has ended.
    [[nodiscard]] QVAttemptObserver *observer() const { return m_hasEnded ? nullptr : m_observer.get(); }

    const QVVerifyStyle m_style;
    const QVIdentity m_identity;
    const QVPopupPresenter &m_presenter;
    const bool m_hasHost;
    const QPointer<QObject> m_host;
    const QVWeakDelegate<QVAttemptObserver> m_observer;
    QVAttemptDeadline m_deadline;
    std::shared_ptr<QVClickSequence> m_sequence;
    std::weak_ptr<QVPopup> m_popup;
    std::unique_ptr<QObject> m_hostWatch;
    bool m_hasEnded = false;
};
