#pragma once

#include "flow/QVAttempt.h"

#include <memory>
#include <vector>

/// The attempts that one front-end started, and the popup of the latest one, shown or hidden.
///
/// A popup that the user closed with its picture is shown again by the next attempt. While a popup with a
/// picture is on screen, its attempt goes on instead of another one.
class QUARVO_CORE_EXPORT QVAttempts
{
public:
    QVAttempts(QVVerifyStyle style, const QVPopupPresenter &presenter, QVAttemptObserver *observer);
    Q_DISABLE_COPY(QVAttempts)

    void start(const QVIdentity &identity, QObject *host);
    /// Ends all attempts for \a reason and dismisses the popup. The observer may destroy this in answer.
    void close(QVCloseReason reason);
    /// Dismisses the popup and ends its attempt, unless that is \a by. The observer may destroy this in
    /// answer.
    void replacePopup(const QVAttempt *by);
    /// Ends all attempts without a word and dismisses the popup.
    void abandon();

    /// The host has, or no longer has, another way for users who cannot do what the picture asks.
    void alternativeHasChanged() const;

    [[nodiscard]] bool areUnderWay() const;
    /// Whether any of them asks the service.
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
