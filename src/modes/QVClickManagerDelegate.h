#pragma once

#include <Quarvo/QVDelegate.h>

#include <QString>

/// Hears what becomes of the button of a QVClickManager. The manager holds it weakly.
class QUARVO_EXPORT QVClickManagerDelegate : public QVDelegate
{
public:
    /// The user has passed; \a token is for the host's own server.
    virtual void clickManagerVerifyPassedWithToken(const QString &token) { Q_UNUSED(token) }
};
