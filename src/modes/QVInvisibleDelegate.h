#pragma once

#include <Quarvo/QVDelegate.h>
#include <Quarvo/QVError.h>

#include <QString>

/// Receives the results of a QVInvisibleManager, which holds it weakly.
///
/// Only the manager's signal closed() reports that the user has closed the popup.
///
/// \code
/// class Login : public QWidget, public QVInvisibleDelegate
/// {
///     void invisibleVerifyPassedWithToken(const QString &token) override { sendToken(token); }
///     void invisibleVerifyFailedWithError(const QVError &error) override { showMessage(error.domain()); }
/// };
/// \endcode
class QUARVO_EXPORT QVInvisibleDelegate : public QVDelegate
{
public:
    /// The user has passed; \a token is for the host's own server.
    virtual void invisibleVerifyPassedWithToken(const QString &token) { Q_UNUSED(token) }
    /// The service did not answer, or refused. The error's domain is the message to show.
    virtual void invisibleVerifyFailedWithError(const QVError &error) { Q_UNUSED(error) }
};
