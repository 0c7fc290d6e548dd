#include "flow/QVAttempts.h"

#include "flow/QVPopup.h"

#include <algorithm>
#include <utility>

namespace {

void dismiss(const std::shared_ptr<QVPopup> &popup)
{
    if (popup)
        popup->dismissWindow();
}

} // namespace

QVAttempts::QVAttempts(QVVerifyStyle style, const QVPopupPresenter &presenter, QVAttemptObserver *observer)
    : m_style(style)
    , m_presenter(presenter)
    , m_observer(observer)
{
}

void QVAttempts::start(const QVIdentity &identity, QObject *host)
{
    std::erase_if(m_attempts, [](const auto &attempt) { return attempt->hasEnded() && !attempt->popup(); });
    const auto popup = this->popup();
    const bool isReady = popup && popup->canDirectlyShow();
    if (isReady && isOnScreen(popup)) {
        popup->displayWindow();
        return;
    }
    if (isReady)
        leavePopup(popup);
    else if (!isOnScreen(popup))
        dismiss(popup);
    const auto attempt = std::make_shared<QVAttempt>(m_style, identity, m_presenter, host, m_observer);
    m_attempts.push_back(attempt);
    attempt->start(isReady ? popup : nullptr);
}

void QVAttempts::close(QVCloseReason reason)
{
    const auto popup = this->popup();
    for (const auto &attempt : std::exchange(m_attempts, {}))
        attempt->close(reason);
    dismiss(popup);
}

void QVAttempts::replacePopup(const QVAttempt *by)
{
    const auto popup = this->popup();
    for (const auto &attempt : List(m_attempts)) {
        if (attempt.get() != by && attempt->popup())
            attempt->close(QVCloseReason::Replaced);
    }
    dismiss(popup);
}

void QVAttempts::abandon()
{
    const auto popup = this->popup();
    for (const auto &attempt : std::exchange(m_attempts, {}))
        attempt->abandon();
    dismiss(popup);
}

void QVAttempts::alternativeHasChanged() const
{
    if (const auto popup = this->popup())
        popup->showAlternative();
}

bool QVAttempts::areUnderWay() const
{
    return !std::ranges::all_of(m_attempts, &QVAttempt::hasEnded);
}

bool QVAttempts::areAsking() const
{
    return std::ranges::any_of(m_attempts, &QVAttempt::isAsking);
}

std::shared_ptr<QVPopup> QVAttempts::popup() const
{
    const auto found = std::find_if(m_attempts.rbegin(), m_attempts.rend(),
                                    [](const auto &attempt) { return attempt->popup() != nullptr; });
    return found == m_attempts.rend() ? nullptr : (*found)->popup();
}

void QVAttempts::leavePopup(const std::shared_ptr<QVPopup> &popup) const
{
    for (const auto &attempt : m_attempts) {
        if (attempt->popup() == popup)
            attempt->leavePopup();
    }
}

bool QVAttempts::isOnScreen(const std::shared_ptr<QVPopup> &popup) const
{
    return std::ranges::any_of(m_attempts, [&popup](const auto &attempt) {
        return !attempt->hasEnded() && attempt->isHostShown() && attempt->popup() == popup;
    });
}
