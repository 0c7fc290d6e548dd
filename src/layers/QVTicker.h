#pragma once

#include "platform/QVScheduler.h"

#include <chrono>
#include <vector>

/// Something that moves from frame to frame.
class QVTickerClient
{
public:
    using Time = std::chrono::nanoseconds;

    virtual ~QVTickerClient() = default;

    virtual void tick(Time time) = 0;
    /// Its widget has come into sight at \a time, before the next tick. Not a place to run callbacks.
    virtual void appear(Time time) { Q_UNUSED(time) }

protected:
    QVTickerClient() = default;
    Q_DISABLE_COPY(QVTickerClient)
};

/// Drives everything that moves, at the screen's refresh rate. Without clients nothing is scheduled.
///
/// All clients of a tick get the same time. Ticks lie on a grid, so that late ones do not add up.
/// Clients may start, stop and be destroyed during a tick.
class QVTicker
{
public:
    using Time = QVTickerClient::Time;

    [[nodiscard]] static QVTicker &shared();

    void start(QVTickerClient *client);
    void stop(QVTickerClient *client);
    [[nodiscard]] bool isRunning() const { return m_task != 0; }
    /// The time of the tick under way; outside a tick, now.
    [[nodiscard]] Time time() const;
    /// Ticks a second; 0 brings back the screen's own rate.
    void setRefreshRate(double rate) { m_rateOverride = rate; }

private:
    QVTicker() = default;

    void begin();
    void scheduleNext();
    void tick();
    void forgetStopped();
    [[nodiscard]] Time frameTime(qint64 frame) const;

    // A client that stops leaves a null here until no tick is under way.
    std::vector<QVTickerClient *> m_clients;
    QVScheduler::TaskId m_task = 0;
    double m_rateOverride = 0;
    double m_rate = 0;
    Time m_origin{};
    Time m_time{};
    qint64 m_nextFrame = 0;
    int m_depth = 0;
};
