#pragma once

#include <Quarvo/QVDelegate.h>

#include <QString>

/// Hears what becomes of the verification in a QVEmbedManager's view. The manager holds it weakly.
class QUARVO_EXPORT QVEmbedManagerDelegate : public QVDelegate
{
public:
    /// The user has passed; \a token is for the host's own server.
    virtual void embedManagerVerifyPassedWithToken(const QString &token) { Q_UNUSED(token) }
};
