#include "platform/QVScheduler.h"

#include <QCoreApplication>
#include <QObject>
#include <QTimerEvent>

#include <algorithm>
#include <limits>
#include <unordered_map>

namespace {

// The longest interval of a Qt timer, about 24 days.
constexpr std::chrono::milliseconds longestWait{std::numeric_limits<int>::max()};

/// Real time, on Qt's event loop. Has a timer only while an action is waiting.
class QtScheduler final : public QObject, public QVScheduler
{
public:
    [[nodiscard]] static QtScheduler &instance();

    [[nodiscard]] std::chrono::nanoseconds now() const override;
    [[nodiscard]] double secondsSince1970() const override;
    TaskId schedule(std::chrono::nanoseconds delay, Action action) override;
    void cancel(TaskId id) override;
    [[nodiscard]] qsizetype pendingCount() const override;

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    struct Task
    {
        int timer = 0;
        std::chrono::nanoseconds due;
        Action action;
    };

    [[nodiscard]] int startTimerUntil(std::chrono::nanoseconds due);
    static void dropAll();

    std::unordered_map<TaskId, Task> m_tasks;
    TaskId m_lastId = 0;
    bool m_dropsAtExit = false;
};

QtScheduler &QtScheduler::instance()
{
    // Never destroyed: a host's statics, managers among them, may be destroyed after ours.
    static auto *const scheduler = new QtScheduler;
    return *scheduler;
}

std::chrono::nanoseconds QtScheduler::now() const
{
    return std::chrono::steady_clock::now().time_since_epoch();
}

double QtScheduler::secondsSince1970() const
{
    // Not rounded to milliseconds: most of those have no exact value as a double of seconds. The difference
    // of two, cut off at the millisecond, would often be one too small.
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

QVScheduler::TaskId QtScheduler::schedule(std::chrono::nanoseconds delay, Action action)
{
    if (!m_dropsAtExit) {
        // Waiting actions may own widgets, which must not outlive the application object.
        qAddPostRoutine(dropAll);
        m_dropsAtExit = true;
    }
    const auto due = now() + std::max(delay, std::chrono::nanoseconds::zero());
    m_tasks.emplace(++m_lastId, Task{startTimerUntil(due), due, std::move(action)});
    return m_lastId;
}

// A precise timer even for long delays: a coarse one may be early or late by five percent.
int QtScheduler::startTimerUntil(std::chrono::nanoseconds due)
{
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(due - now());
    return startTimer(std::clamp(wait, std::chrono::milliseconds::zero(), longestWait), Qt::PreciseTimer);
}

void QtScheduler::cancel(TaskId id)
{
    const auto found = m_tasks.find(id);
    if (found == m_tasks.end())
        return;
    killTimer(found->second.timer);
    // Taken out first: the destructor of the action may cancel other actions.
    const auto node = m_tasks.extract(found);
}

qsizetype QtScheduler::pendingCount() const
{
    return static_cast<qsizetype>(m_tasks.size());
}

void QtScheduler::timerEvent(QTimerEvent *event)
{
    killTimer(event->timerId());
    const auto found = std::ranges::find_if(
        m_tasks, [&](const auto &entry) { return entry.second.timer == event->timerId(); });
    if (found == m_tasks.end())
        return;
    // The timer may fire early: it counts milliseconds of another clock, and at most longestWait.
    if (now() < found->second.due) {
        found->second.timer = startTimerUntil(found->second.due);
        return;
    }
    const auto node = m_tasks.extract(found);
    node.mapped().action();
}

void QtScheduler::dropAll()
{
    QtScheduler &scheduler = instance();
    scheduler.m_dropsAtExit = false;
    while (!scheduler.m_tasks.empty())
        scheduler.cancel(scheduler.m_tasks.begin()->first);
}

QVScheduler *replacement = nullptr;

} // namespace

QVScheduler::~QVScheduler() = default;

QVScheduler &QVScheduler::shared()
{
    return replacement ? *replacement : QtScheduler::instance();
}

void QVScheduler::setShared(QVScheduler *scheduler)
{
    replacement = scheduler;
}
