#pragma once

#include "flow/QVCloseReason.h"
#include "platform/QVDelegate.h"
#include "platform/QVError.h"

#include <functional>

/// What the flow of a mode needs of a front-end: the window that a popup belongs to, and its way of telling
/// the host.
class QVModeSurface : public QVDelegate
{
public:
    using TellToken = std::function<void(const QString &token)>;

    /// The window that an attempt started now belongs to, in the toolkit's class; null for the main screen.
    [[nodiscard]] virtual QObject *host() const = 0;
    /// Whether the host has another way for users who cannot do what the picture asks.
    [[nodiscard]] virtual bool offersAlternative() const = 0;
    /// What tells the host a token. It is called later, when the surface may have gone.
    [[nodiscard]] virtual TellToken tellToken() const = 0;

    // Each tells the host, which may destroy the front-end in answer: the flow calls them last.
    virtual void popupHasOpened() = 0;
    virtual void outageHasStarted() = 0;
    /// Something failed inside the popup, where the user may try again.
    virtual void popupHasFailed(const QVError &error) = 0;
    virtual void alternativeIsWanted() = 0;
    virtual void hasFailed(const QVError &error) = 0;
    virtual void hasClosed(QVCloseReason reason) = 0;
    virtual void hasExpired() = 0;
};
