#include "flow/QVAttemptDeadline.h"

#include "net/QVNetworkError.h"
#include "service/QVErrorClassification.h"
#include "settings/QVConfigurationManager.h"

#include <utility>

void QVAttemptDeadline::start(Expired expired)
{
    stop();
    const auto timeout = QVConfigurationManager::sharedManager().attemptTimeout();
    if (timeout.count() <= 0)
        return;
    m_timer.start(timeout, [expired = std::move(expired)] {
        expired(QVErrorClassification::parseError(qv_networkError(QVError::TimedOut)));
    });
}
