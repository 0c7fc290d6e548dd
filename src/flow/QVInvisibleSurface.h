#pragma once

#include "flow/QVModeSurface.h"

#include <chrono>

/// The interface of QVInvisibleFlow to the front-end.
class QVInvisibleSurface : public QVModeSurface
{
public:
    /// How long the badge shows that the user has passed.
    static constexpr std::chrono::seconds passDuration{1};
    /// How long it takes to open the strip that says so.
    static constexpr std::chrono::milliseconds openDuration{500};
    /// When the halo begins to grow, and how long it is seen.
    static constexpr std::chrono::milliseconds haloDelay{750};
    static constexpr std::chrono::milliseconds haloDuration{250};

    /// Shows the badge over \a host, with its ring turning, unless the badge is switched off.
    virtual void showBadge(QObject *host) = 0;
    /// Shows on the badge over \a host that the user has passed, and runs \a completion after passDuration,
    /// even if the front-end was destroyed meanwhile. Returns false if the badge is switched off or cannot be
    /// shown.
    virtual bool passBadge(QObject *host, const std::function<void()> &completion) = 0;
    virtual void removeBadge() = 0;
};
