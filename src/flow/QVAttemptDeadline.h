#pragma once

#include "platform/QVError.h"
#include "platform/QVTimer.h"
#include "platform/QuarvoCoreExport.h"

#include <functional>

/// The host's time limit for an attempt, if it has set one.
class QUARVO_CORE_EXPORT QVAttemptDeadline
{
public:
    using Expired = std::function<void(const QVError &error)>;

    /// Starts the time, with the limit that is set now. \a expired may destroy this.
    void start(Expired expired);
    void stop() { m_timer.stop(); }

private:
    QVTimer m_timer;
};
