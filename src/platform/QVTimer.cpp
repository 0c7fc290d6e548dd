#include "platform/QVTimer.h"

#include <utility>

QVTimer::~QVTimer()
{
    stop();
}

void QVTimer::start(std::chrono::nanoseconds delay, QVScheduler::Action action)
{
    stop();
    m_task = QVScheduler::shared().schedule(delay, [this, action = std::move(action)] {
        m_task = 0;
        // The action may destroy this timer. That is safe: the scheduler owns the action until it returns.
        action();
    });
}

void QVTimer::stop()
{
    if (m_task == 0)
        return;
    QVScheduler::shared().cancel(std::exchange(m_task, 0));
}
