#pragma once

#include "platform/QVDelegate.h"

#include <QString>

/// Told what comes of a drawing captcha.
class QVRenderDrawViewDelegate : public QVDelegate
{
public:
    /// The user has passed, which the view shows for a second before it tells the token.
    virtual void renderDrawViewHasPassed() {}
    /// The user passed, a second ago; \a token proves it. Called even when the view has gone meanwhile.
    virtual void renderDrawViewVerifySuccess(const QString &token) { Q_UNUSED(token) }
};
