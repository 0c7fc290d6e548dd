#include "support/QVVirtualScheduler.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace {

// An ordinary date (2024-01-01), so that a time stamp taken for a duration would show.
constexpr double epochOffsetSeconds = 1704067200.0;

} // namespace

QVVirtualScheduler::QVVirtualScheduler()
{
    setShared(this);
}

QVVirtualScheduler::~QVVirtualScheduler()
{
    // Actions may own objects whose destruction cancels other actions.
    while (!m_tasks.empty())
        m_tasks.extract(m_tasks.begin());
    setShared(nullptr);
}

double QVVirtualScheduler::secondsSince1970() const
{
    return epochOffsetSeconds + std::chrono::duration<double>(m_now).count();
}

QVScheduler::TaskId QVVirtualScheduler::schedule(std::chrono::nanoseconds delay, Action action)
{
    const auto wait = std::max(delay, std::chrono::nanoseconds::zero());
    m_tasks.emplace(Due{m_now + wait, ++m_lastId}, std::move(action));
    return m_lastId;
}

void QVVirtualScheduler::cancel(TaskId id)
{
    const auto found =
        std::ranges::find_if(m_tasks, [id](const auto &entry) { return entry.first.second == id; });
    if (found != m_tasks.end())
        m_tasks.extract(found);
}

qsizetype QVVirtualScheduler::pendingCount() const
{
    return static_cast<qsizetype>(m_tasks.size());
}

void QVVirtualScheduler::advance(std::chrono::nanoseconds duration)
{
    runUntil(m_now + duration);
}

void QVVirtualScheduler::runUntil(std::chrono::nanoseconds end)
{
    while (!m_tasks.empty() && m_tasks.begin()->first.first <= end) {
        auto task = m_tasks.extract(m_tasks.begin());
        m_now = std::max(m_now, task.key().first);
        task.mapped()();
        QCoreApplication::processEvents();
    }
    m_now = std::max(m_now, end);
    QCoreApplication::processEvents();
}
