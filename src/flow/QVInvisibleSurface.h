#pragma once

#include "flow/QVModeSurface.h"

/// What the flow of invisible mode needs of a front-end besides.
class QVInvisibleSurface : public QVModeSurface
{
public:
    /// Shows the badge over \a host, with its ring turning, unless the host of the mode wants none.
    virtual void showBadge(QObject *host) = 0;
    /// Lets the badge over \a host say that the user has passed, and runs \a completion a second later, even
    /// if the front-end has gone by then. False where no badge is wanted, or none can be shown.
    virtual bool passBadge(QObject *host, const std::function<void()> &completion) = 0;
    virtual void removeBadge() = 0;
};
