#pragma once

#include "flow/QVAttempt.h"

#include <memory>
#include <vector>

/// The attempts that one front-end has started, and the popup of the latest one, shown or hidden.
///
/// If the user has closed a popup with a picture, the next attempt shows it again. While a popup with a
/// picture is on screen, start() continues its attempt instead of starting another one.
class QUARVO_CORE_EXPORT QVAttempts
{
public:
    QVAttempts(QVVerifyStyle style, const QVPopupPresenter &presenter, QVAttemptObserver *observer);
    Q_DISABLE_COPY(QVAttempts)

    void start(const QVIdentity &identity, QObject *host);
    /// Ends all attempts for \a reason and dismisses the popup. The observer may destroy this meanwhile.
    void close(QVCloseReason reason);
    /// Dismisses the popup and ends its attempt, unless that is \a by. The observer may destroy this
    /// meanwhile.
    void replacePopup(const QVAttempt *by);
    /// Ends all attempts without a callback and dismisses the popup.
    void abandon();

    /// Call when the host begins or ceases to offer another way to users who cannot do what the picture asks.
    void alternativeHasChanged() const;

    [[nodiscard]] bool areUnderWay() const;
    /// Whether any attempt is waiting for the service.
    [[nodiscard]] bool areAsking() const;

private:
    using List = std::vector<std::shared_ptr<QVAttempt>>;

    [[nodiscard]] std::shared_ptr<QVPopup> popup() const;
    /// Makes \a popup free for the next attempt.
    void leavePopup(const std::shared_ptr<QVPopup> &popup) const;
    [[nodiscard]] bool isOnScreen(const std::shared_ptr<QVPopup> &popup) const;

    const QVVerifyStyle m_style;
    const QVPopupPresenter &m_presenter;
    QVAttemptObserver *const m_observer;
    /// The attempts under way, and the one whose popup was hidden with its picture.
    List m_attempts;
};
