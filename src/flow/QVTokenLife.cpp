#include "flow/QVTokenLife.h"

#include "settings/QVConfigurationManager.h"

#include <utility>

void QVTokenLife::start(QVScheduler::Action expired)
{
    stop();
    const auto lifetime = QVConfigurationManager::sharedManager().tokenLifetime();
    if (lifetime.count() > 0)
        m_timer.start(lifetime, std::move(expired));
}
