#pragma once

#include "platform/QVScheduler.h"

#include <chrono>
#include <vector>

/// An object that is animated frame by frame.
class QVTickerClient
{
public:
    using Time = std::chrono::nanoseconds;

    virtual ~QVTickerClient() = default;

    virtual void tick(Time time) = 0;
    /// The widget has become visible at \a time. Called before the next tick. Must not call back into the
    /// host.
    virtual void appear(Time time) { Q_UNUSED(time) }

protected:
    QVTickerClient() = default;
    Q_DISABLE_COPY(QVTickerClient)
};

/// Drives all animations at the refresh rate of the screen. Without clients nothing is scheduled.
///
/// All clients of a tick get the same time. The times of ticks are multiples of the frame time, so that
/// delays do not add up. Clients may be started, stopped and destroyed during a tick.
class QVTicker
{
public:
    using Time = QVTickerClient::Time;

    [[nodiscard]] static QVTicker &shared();

    void start(QVTickerClient *client);
    void stop(QVTickerClient *client);
    [[nodiscard]] bool isRunning() const { return m_task != 0; }
    /// The time of the current tick; outside a tick, the current time.
    [[nodiscard]] Time time() const;
    /// Sets the rate in ticks per second. 0 restores the rate of the screen.
    void setRefreshRate(double rate) { m_rateOverride = rate; }

private:
    QVTicker() = default;

    void begin();
    void scheduleNext();
    void tick();
    void forgetStopped();
    [[nodiscard]] Time frameTime(qint64 frame) const;

    // A client that is stopped during a tick is null until the end of the tick.
    std::vector<QVTickerClient *> m_clients;
    QVScheduler::TaskId m_task = 0;
    double m_rateOverride = 0;
    double m_rate = 0;
    Time m_origin{};
    Time m_time{};
    qint64 m_nextFrame = 0;
    int m_depth = 0;
};
