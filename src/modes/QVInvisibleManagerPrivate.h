#pragma once

#include "flow/QVAttempts.h"
#include "flow/QVTokenLife.h"

#include <QPointer>

#include <memory>

class QVHostWatch;
class QVInvisibleAnimationView;
class QVInvisibleDelegate;
class QVInvisibleManager;

/// The behaviour of the invisible manager: its badge, and the results of its attempts.
///
/// The host may destroy the manager in any callback: each step does its own work before it calls back.
class QVInvisibleManagerPrivate final : public QVAttemptObserver
{
public:
    explicit QVInvisibleManagerPrivate(QVInvisibleManager *manager);
    ~QVInvisibleManagerPrivate() override;

    void startInsivible();
    void reset();
    void alternativeHasChanged() const { m_attempts.alternativeHasChanged(); }

    void attemptAsks(QVAttempt &attempt) override;
    void attemptIsAnswered(QVAttempt &attempt) override;
    void attemptShowsPopup(QVAttempt &attempt) override;
    void attemptEntersOutage(QVAttempt &attempt) override;
    void attemptFailsInPopup(QVAttempt &attempt, const QVError &error) override;
    [[nodiscard]] bool offersAlternative() const override;
    void attemptWantsAlternative(QVAttempt &attempt) override;
    void attemptHasPassed(QVAttempt &attempt, const QString &token) override;
    void attemptHasFailed(QVAttempt &attempt, const QVError &error) override;
    void attemptHasClosed(QVAttempt &attempt, QVCloseReason reason) override;

    QVInvisibleManager *const q;
    QVWeakDelegate<QVInvisibleDelegate> delegate;
    QVIdentity identity;
    bool animation = true;

private:
    /// The badge. It is created over \a host if there is none. Null if it is switched off or cannot be shown.
    QVInvisibleAnimationView *animationView(QObject *host);
    void createAnimationView(QObject *host);
    void showLoadingBadge(QObject *host);
    void centreAnimationView() const;
    void removeAnimationView();
    /// Called at each end of an attempt.
    void attemptHasEnded();

    static void report(const QPointer<QVInvisibleManager> &manager,
                       const QVWeakDelegate<QVInvisibleDelegate> &last, const QString &token);

    QPointer<QVInvisibleAnimationView> m_animationView;
    /// The window that the badge is centred on.
    QPointer<QObject> m_badgeHost;
    std::unique_ptr<QVHostWatch> m_badgeWatch;
    QVTokenLife m_tokenLife;
    QVAttempts m_attempts;
};
