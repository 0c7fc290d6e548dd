#pragma once

#include <Quarvo/QVDelegate.h>

#include <QString>

/// Hears what becomes of a QVClickButton. The button holds it weakly.
class QUARVO_EXPORT QVClickButtonDelegate : public QVDelegate
{
public:
    /// The user has passed; \a token is for the host's own server. Comes half a second after the
    /// button turned green, so that the user sees it.
    virtual void clickButtonVerifyPassedWithToken(const QString &token) { Q_UNUSED(token) }
};
