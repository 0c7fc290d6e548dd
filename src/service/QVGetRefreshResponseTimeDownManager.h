#pragma once

#include "platform/QVTimer.h"

#include <memory>

/// What a countdown is a part of. Only a running countdown keeps it alive.
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
    /// \a delegate is the picture's record, which this is a part of.
    explicit QVGetRefreshResponseTimeDownManager(QVGetRefreshResponseTimeDownDelegate *delegate)
        : m_delegate(delegate)
    {
    }

    [[nodiscard]] QVGetRefreshResponseTimeDownDelegate *delegate() const { return m_delegate; }
    [[nodiscard]] const QVTimer &timer() const { return m_timer; }

    /// Tells the delegate when the picture's time is up, unless it is started anew or ended before.
    void start();
    void end() { m_timer.stop(); }

private:
    QVGetRefreshResponseTimeDownDelegate *const m_delegate;
    QVTimer m_timer;
};
