#include "layers/QVTicker.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double nanosecondsPerSecond = 1e9;
constexpr double usualRate = 60;
// Virtual screens may report any rate, even zero.
constexpr double lowestRate = 24;
constexpr double highestRate = 240;

double screenRate()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    const double rate = screen ? screen->refreshRate() : usualRate;
    return rate >= lowestRate && rate <= highestRate ? rate : usualRate;
}

} // namespace

QVTicker &QVTicker::shared()
{
    // Never destroyed: a host's statics, managers among them, may be destroyed after ours.
    static auto *const ticker = new QVTicker;
    return *ticker;
}

void QVTicker::start(QVTickerClient *client)
{
    if (std::ranges::find(m_clients, client) != m_clients.end())
        return;
    m_clients.push_back(client);
    if (!isRunning())
        begin();
}

void QVTicker::stop(QVTickerClient *client)
{
    const auto found = std::ranges::find(m_clients, client);
    if (found == m_clients.end())
        return;
    *found = nullptr;
    if (m_depth == 0)
        forgetStopped();
}

QVTicker::Time QVTicker::time() const
{
    return m_depth > 0 ? m_time : QVScheduler::shared().now();
}

void QVTicker::begin()
{
    m_rate = m_rateOverride > 0 ? m_rateOverride : screenRate();
    m_origin = QVScheduler::shared().now();
    m_nextFrame = 1;
    scheduleNext();
}

void QVTicker::scheduleNext()
{
    const Time delay = frameTime(m_nextFrame) - QVScheduler::shared().now();
    m_task = QVScheduler::shared().schedule(delay, [this] { tick(); });
}

void QVTicker::tick()
{
    const double passed = double((QVScheduler::shared().now() - m_origin).count());
    const auto frame = std::max(m_nextFrame, qint64(std::floor(passed * m_rate / nanosecondsPerSecond)));
    m_time = frameTime(frame);
    m_nextFrame = frame + 1;
    // Scheduled before the clients are called: if one of them runs a nested event loop, ticks go on in it.
    scheduleNext();
    ++m_depth;
    const std::size_t count = m_clients.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (m_clients[i])
            m_clients[i]->tick(m_time);
    }
    if (--m_depth == 0)
        forgetStopped();
}

void QVTicker::forgetStopped()
{
    std::erase(m_clients, nullptr);
    if (m_clients.empty())
        QVScheduler::shared().cancel(std::exchange(m_task, 0));
}

QVTicker::Time QVTicker::frameTime(qint64 frame) const
{
    return m_origin + Time(std::llround(double(frame) * nanosecondsPerSecond / m_rate));
}
