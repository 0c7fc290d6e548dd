#pragma once

#include <Quarvo/QVDelegate.h>
#include <Quarvo/QVError.h>

#include <QString>

/// Hears what becomes of a verification of QVInvisibleManager. The manager holds it weakly.
///
/// A user who closes the popup is reported by the manager's signal closed() only.
class QUARVO_EXPORT QVInvisibleDelegate : public QVDelegate
{
public:
    /// The user has passed; \a token is for the host's own server.
    virtual void invisibleVerifyPassedWithToken(const QString &token) { Q_UNUSED(token) }
    /// The service could not be asked or refused to answer; the error's domain is the message to show.
    virtual void invisibleVerifyFailedWithError(const QVError &error) { Q_UNUSED(error) }
};
