#include "service/QVGetRefreshResponseTimeDownManager.h"

#include <utility>

namespace {

// One second less than the three minutes for which the service keeps a picture.
constexpr std::chrono::seconds period(179);

} // namespace

void QVGetRefreshResponseTimeDownManager::start(std::function<void()> action)
{
    m_timer.start(period, std::move(action));
}

void QVGetRefreshResponseTimeDownManager::end()
{
    m_timer.stop();
}
