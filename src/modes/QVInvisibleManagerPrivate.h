#pragma once

#include "flow/QVAttemptDeadline.h"
#include "flow/QVClickSequence.h"
#include "popup/QVViewControllerDelegate.h"

#include <QPointer>

#include <memory>
#include <vector>

class QVHostWatch;
class QVInvisibleAnimationView;
class QVInvisibleDelegate;
class QVInvisibleManager;
class QVViewController;
class QWidget;

/// What the invisible manager does: its conversations with the service, its badge and its popup.
///
/// The host may destroy the manager in any callback: whatever a step does, it does before.
class QVInvisibleManagerPrivate final : public QVViewControllerDelegate
{
public:
    explicit QVInvisibleManagerPrivate(QVInvisibleManager *manager);
    ~QVInvisibleManagerPrivate() override;

    void startInsivible();
    void reset();
    void qv_controllerPassedAction() override;
    void quarvoControllerVerifySuccessWithToken(const QString &token) override;
    void qv_controllerCloseAction() override;
    void qv_controllerOutageAction() override;

    QVInvisibleManager *const q;
    QVWeakDelegate<QVInvisibleDelegate> delegate;
    bool animation = true;

private:
    using Sequence = std::shared_ptr<QVClickSequence>;

    /// The badge, created where there is none; null while it is switched off.
    QVInvisibleAnimationView *animationView();
    /// Also dismisses the popup.
    void removeAnimationView();
    void createAnimationView();
    void centreAnimationView() const;

    void startDeadline();
    void stopDeadlineWhenIdle();
    void attemptsTimedOut(const QVError &error);
    void requestOutageAction();
    void watchHost();
    void handleOutcome(const QVClickSequence::Outcome &outcome);
    void showVerifyControllerWithConfig(const QVClickSequence::Config &config,
                                        const QVClickSequence::Click &click);
    void handleSuccess(const QString &token);
    void handleError(const QVError &error);
    static void report(const QPointer<QVInvisibleManager> &manager,
                       const QVWeakDelegate<QVInvisibleDelegate> &last, const QString &token);
    /// Tells of attempts that removeAnimationView() or reset() ended.
    void reportClosed();

    QPointer<QVInvisibleAnimationView> m_animationView;
    std::weak_ptr<QVViewController> m_qv_controller;
    std::vector<Sequence> m_sequences;
    /// The window that the last attempt was started on, while it is being decided.
    std::unique_ptr<QVHostWatch> m_hostWatch;
    /// Whether the popup's attempt has not ended yet.
    bool m_drawing = false;
    int m_closedUnreported = 0;
    /// Counted from the last start.
    QVAttemptDeadline m_deadline;
};
