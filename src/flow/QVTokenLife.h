#pragma once

#include "platform/QVTimer.h"
#include "platform/QuarvoCoreExport.h"

/// The time for which a token is valid once the host has it. No timer runs if the host has set no lifetime.
class QUARVO_CORE_EXPORT QVTokenLife
{
public:
    /// Calls \a expired once when the time is up, unless this is started again or stopped before.
    void start(QVScheduler::Action expired);
    void stop() { m_timer.stop(); }

private:
    QVTimer m_timer;
};
