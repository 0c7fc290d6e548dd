#pragma once

#include "flow/QVCloseReason.h"
#include "platform/QVDelegate.h"
#include "platform/QVError.h"

#include <functional>

/// The interface of the flow of a mode to its front-end: the window that a popup belongs to, and the
/// notifications of the host.
class QVModeSurface : public QVDelegate
{
public:
    using TellToken = std::function<void(const QString &token)>;

    /// The window that an attempt belongs to which is started now, an object of the toolkit's class. Null for
    /// the main screen.
    [[nodiscard]] virtual QObject *host() const = 0;
    /// Whether the host has another way for users who cannot do what the picture asks.
    [[nodiscard]] virtual bool offersAlternative() const = 0;
    /// A function that reports a token to the host. It is called later, even if the surface was destroyed.
    [[nodiscard]] virtual TellToken tellToken() const = 0;

    // Each of these notifies the host, which may destroy the front-end. So the flow calls them last.
    virtual void popupHasOpened() = 0;
    virtual void outageHasStarted() = 0;
    /// Something failed inside the popup, where the user may try again.
    virtual void popupHasFailed(const QVError &error) = 0;
    virtual void alternativeIsWanted() = 0;
    virtual void hasFailed(const QVError &error) = 0;
    virtual void hasClosed(QVCloseReason reason) = 0;
    virtual void hasExpired() = 0;
};
