#pragma once

#include "platform/QVDelegate.h"

#include <QString>

/// Receives the result of a drawing captcha.
class QVRenderDrawViewDelegate : public QVDelegate
{
public:
    /// The user has passed. The view shows that for a second before it reports the token.
    virtual void renderDrawViewHasPassed() {}
    /// The user has passed a second ago; \a token proves it. Called even if the view was destroyed meanwhile.
    virtual void renderDrawViewVerifySuccess(const QString &token) { Q_UNUSED(token) }
};
