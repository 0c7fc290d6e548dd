#pragma once

#include "platform/QVScheduler.h"

#include <QObject>

#include <unordered_map>

/// Real time, on Qt's event loop. Holds a timer only for what is waiting.
class QVQtScheduler final : public QObject, public QVScheduler
{
public:
    [[nodiscard]] static QVQtScheduler &instance();

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
        Action action;
    };

    static void dropAll();

    std::unordered_map<TaskId, Task> m_tasks;
    TaskId m_lastId = 0;
    bool m_dropsAtExit = false;
};
