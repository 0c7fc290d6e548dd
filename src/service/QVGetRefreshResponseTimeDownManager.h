#pragma once

#include "platform/QVTimer.h"

#include <functional>

/// The countdown of one picture.
class QVGetRefreshResponseTimeDownManager
{
public:
    /// Runs \a action when the picture's time is up, unless it is started anew or ended before.
    void start(std::function<void()> action);
    void end();

private:
    QVTimer m_timer;
};
