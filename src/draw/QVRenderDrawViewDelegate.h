#pragma once

#include "platform/QVDelegate.h"

#include <QString>

/// Told what comes of a drawing captcha.
class QVRenderDrawViewDelegate : public QVDelegate
{
public:
    /// The user passed, a second ago; \a token proves it. Called even when the view has gone meanwhile.
    virtual void renderDrawViewVerifySuccess(const QString &token) { Q_UNUSED(token) }
};
