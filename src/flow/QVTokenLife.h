#pragma once

#include "platform/QVTimer.h"
#include "platform/QuarvoCoreExport.h"

/// The time for which a token stays good once the host has it. No timer runs where the host has named no
/// lifetime.
class QUARVO_CORE_EXPORT QVTokenLife
{
public:
    /// Calls \a expired once when the time is up, unless another token's life begins before.
    void start(QVScheduler::Action expired);
    void stop() { m_timer.stop(); }

private:
    QVTimer m_timer;
};
