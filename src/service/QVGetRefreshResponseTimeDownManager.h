#pragma once

#include "platform/QVTimer.h"

#include <memory>

/// The object that a countdown is a member of. A running countdown keeps it alive.
class QVGetRefreshResponseTimeDownDelegate
    : public std::enable_shared_from_this<QVGetRefreshResponseTimeDownDelegate>
{
public:
    virtual void getRefreshResponseTimeDownHandle() = 0;

protected:
    ~QVGetRefreshResponseTimeDownDelegate() = default;
};

/// The countdown of one picture.
class QVGetRefreshResponseTimeDownManager
{
public:
    /// \a delegate is the record of the picture, which this is a member of.
    explicit QVGetRefreshResponseTimeDownManager(QVGetRefreshResponseTimeDownDelegate *delegate)
        : m_delegate(delegate)
    {
    }

    [[nodiscard]] QVGetRefreshResponseTimeDownDelegate *delegate() const { return m_delegate; }
    [[nodiscard]] const QVTimer &timer() const { return m_timer; }

    /// Calls the delegate when the picture's time is up, unless it is restarted or ended before.
    void start();
    void end() { m_timer.stop(); }

private:
    QVGetRefreshResponseTimeDownDelegate *const m_delegate;
    QVTimer m_timer;
};
