#pragma once

#include "platform/QVTimer.h"

class QVGetRefreshResponseModel;

/// The countdown of one picture.
class QVGetRefreshResponseTimeDownManager
{
public:
    /// \a delegate is the picture's record, which this is a part of.
    explicit QVGetRefreshResponseTimeDownManager(QVGetRefreshResponseModel *delegate)
        : m_delegate(delegate)
    {
    }

    /// Never owned; only a running countdown keeps it alive.
    [[nodiscard]] QVGetRefreshResponseModel *delegate() const { return m_delegate; }
    [[nodiscard]] const QVTimer &timer() const { return m_timer; }

    /// Tells the delegate when the picture's time is up, unless it is started anew or ended before.
    void start();
    void end() { m_timer.stop(); }

private:
    QVGetRefreshResponseModel *const m_delegate;
    QVTimer m_timer;
};
