#include "net/QVDataTask.h"

#include "platform/QVMainThread.h"

QVDataTask::QVDataTask(QVTransfer *transfer)
    : m_transfer(transfer)
{
}

void QVDataTask::cancel()
{
    // First: a request that has ended may be let go of beyond the application object.
    if (isFinished())
        return;
    qv_assertMainThread();
    m_transfer->cancel();
}

bool QVDataTask::isFinished() const
{
    return !m_transfer || m_transfer->isFinished();
}
