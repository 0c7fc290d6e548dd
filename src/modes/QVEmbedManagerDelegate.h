#pragma once

#include <Quarvo/QVDelegate.h>

#include <QString>

/// Receives the result of a QVEmbedManager, which holds it weakly.
///
/// \code
/// class Login : public QWidget, public QVEmbedManagerDelegate
/// {
///     void embedManagerVerifyPassedWithToken(const QString &token) override { sendToken(token); }
/// };
/// \endcode
class QUARVO_EXPORT QVEmbedManagerDelegate : public QVDelegate
{
public:
    /// The user has passed; \a token is for the host's own server.
    virtual void embedManagerVerifyPassedWithToken(const QString &token) { Q_UNUSED(token) }
};
