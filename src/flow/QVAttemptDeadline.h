#pragma once

#include "platform/QVError.h"
#include "platform/QVTimer.h"
#include "platform/QuarvoCoreExport.h"

#include <functional>

/// The time that the host gives an attempt, if it limits it at all.
class QUARVO_CORE_EXPORT QVAttemptDeadline
{
public:
    using Expired = std::function<void(const QVError &error)>;

    /// Counts from now on, as long as the settings say now. \a expired may destroy this.
    void start(Expired expired);
    void stop() { m_timer.stop(); }

private:
    QVTimer m_timer;
};
