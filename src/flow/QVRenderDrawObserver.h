#pragma once

#include "platform/QVDelegate.h"

class QVError;

/// Hears what happens to a drawing captcha. Each of these may reach the host, which may destroy the captcha
/// or start again. So the flow calls them last.
class QVRenderDrawObserver : public QVDelegate
{
public:
    virtual void outageHasStarted() = 0;
    virtual void pictureIsReady() = 0;
    virtual void answerWasWrong() = 0;
    virtual void attemptHasFailed(const QVError &error) = 0;
    virtual void tokenHasExpired() = 0;
};
