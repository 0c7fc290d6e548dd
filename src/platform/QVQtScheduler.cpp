#include "platform/QVQtScheduler.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QTimerEvent>

#include <algorithm>
#include <limits>

namespace {

// Below this a coarse timer, which may be 5 % late, would show as uneven motion.
constexpr auto preciseBelow = std::chrono::seconds(2);
// What Qt's timers can count, some 24 days.
constexpr std::chrono::milliseconds longestWait{std::numeric_limits<int>::max()};

} // namespace

QVQtScheduler &QVQtScheduler::instance()
{
    // Never destroyed: a host may end its own statics, managers among them, after ours.
    static auto *const scheduler = new QVQtScheduler;
    return *scheduler;
}

std::chrono::nanoseconds QVQtScheduler::now() const
{
    return std::chrono::steady_clock::now().time_since_epoch();
}

double QVQtScheduler::secondsSince1970() const
{
    constexpr double millisecondsPerSecond = 1000.0;
    return static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / millisecondsPerSecond;
}

QVScheduler::TaskId QVQtScheduler::schedule(std::chrono::nanoseconds delay, Action action)
{
    if (!m_dropsAtExit) {
        // What waits may hold widgets, which must not outlive the application object.
        qAddPostRoutine(dropAll);
        m_dropsAtExit = true;
    }
    const auto wait = std::clamp(std::chrono::ceil<std::chrono::milliseconds>(delay),
                                 std::chrono::milliseconds::zero(), longestWait);
    const int timer = startTimer(wait, wait < preciseBelow ? Qt::PreciseTimer : Qt::CoarseTimer);
    m_tasks.emplace(++m_lastId, Task{timer, std::move(action)});
    return m_lastId;
}

void QVQtScheduler::cancel(TaskId id)
{
    const auto found = m_tasks.find(id);
    if (found == m_tasks.end())
        return;
    killTimer(found->second.timer);
    // Taken out first: destroying the action may cancel others in turn.
    const auto node = m_tasks.extract(found);
}

qsizetype QVQtScheduler::pendingCount() const
{
    return static_cast<qsizetype>(m_tasks.size());
}

void QVQtScheduler::timerEvent(QTimerEvent *event)
{
    killTimer(event->timerId());
    const auto found = std::ranges::find_if(
        m_tasks, [&](const auto &entry) { return entry.second.timer == event->timerId(); });
    if (found == m_tasks.end())
        return;
    const auto node = m_tasks.extract(found);
    node.mapped().action();
}

void QVQtScheduler::dropAll()
{
    QVQtScheduler &scheduler = instance();
    scheduler.m_dropsAtExit = false;
    while (!scheduler.m_tasks.empty())
        scheduler.cancel(scheduler.m_tasks.begin()->first);
}
