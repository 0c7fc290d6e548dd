#pragma once

#include "net/QVTransfer.h"

#include <QPointer>

/// A handle to a started request. Dropping it leaves the request running.
class QVDataTask
{
public:
    explicit QVDataTask(QVTransfer *transfer);

    /// Ends the request early: its completion still runs, later, with code -999. Does nothing to a
    /// request that has ended.
    void cancel();
    [[nodiscard]] bool isFinished() const;

private:
    QPointer<QVTransfer> m_transfer;
};
