#include "service/QVGetRefreshResponseTimeDownManager.h"

namespace {

// One second less than the three minutes for which the service keeps a picture.
constexpr std::chrono::seconds period(179);

} // namespace

void QVGetRefreshResponseTimeDownManager::start()
{
    m_timer.start(period, [delegate = m_delegate, alive = m_delegate->weak_from_this().lock()] {
        delegate->getRefreshResponseTimeDownHandle();
    });
}
