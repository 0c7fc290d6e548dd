#pragma once

#include <Quarvo/QVDelegate.h>

#include <QString>

/// Receives the result of a QVClickManager, which holds it weakly.
///
/// \code
/// class Login : public QWidget, public QVClickManagerDelegate
/// {
///     void clickManagerVerifyPassedWithToken(const QString &token) override { sendToken(token); }
/// };
/// \endcode
class QUARVO_EXPORT QVClickManagerDelegate : public QVDelegate
{
public:
    /// The user has passed; \a token is for the host's own server.
    virtual void clickManagerVerifyPassedWithToken(const QString &token) { Q_UNUSED(token) }
};
