#pragma once

#include "flow/QVInvisibleFlow.h"

#include <QPointer>

#include <memory>

class QVHostWatch;
class QVInvisibleAnimationView;
class QVInvisibleDelegate;
class QVInvisibleManager;

/// The badge of an invisible manager, and the notifications of the host. QVInvisibleFlow decides on the
/// attempts.
class QVInvisibleManagerPrivate final : public QVInvisibleSurface
{
public:
    explicit QVInvisibleManagerPrivate(QVInvisibleManager *manager);
    ~QVInvisibleManagerPrivate() override;

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
    void showBadge(QObject *host) override;
    bool passBadge(QObject *host, const std::function<void()> &completion) override;
    void removeBadge() override;

    QVInvisibleManager *const q;
    QVWeakDelegate<QVInvisibleDelegate> delegate;
    QVInvisibleFlow flow;
    bool animation = true;

private:
    /// The badge. It is created over \a host if there is none. Null if it is switched off or cannot be shown.
    QVInvisibleAnimationView *animationView(QObject *host);
    void createAnimationView(QObject *host);
    void centreAnimationView() const;

    QPointer<QVInvisibleAnimationView> m_animationView;
    /// The window that the badge is centred on.
    QPointer<QObject> m_badgeHost;
    std::unique_ptr<QVHostWatch> m_badgeWatch;
};
