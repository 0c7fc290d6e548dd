#pragma once

#include <Quarvo/QVDelegate.h>

#include <QString>

/// Receives the result of a QVClickButton, which holds it weakly.
///
/// \code
/// class Login : public QWidget, public QVClickButtonDelegate
/// {
///     void clickButtonVerifyPassedWithToken(const QString &token) override { sendToken(token); }
/// };
/// \endcode
class QUARVO_EXPORT QVClickButtonDelegate : public QVDelegate
{
public:
    /// The user has passed; \a token is for the host's own server. Called half a second after the button has
    /// turned green, so that the user sees that.
    virtual void clickButtonVerifyPassedWithToken(const QString &token) { Q_UNUSED(token) }
};
