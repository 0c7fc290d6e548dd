#include "service/QVDataTask.h"

#include "platform/QVMainThread.h"

QVDataTask::QVDataTask(QVTransfer *transfer)
    : m_transfer(transfer)
{
}

void QVDataTask::cancel()
{
    qv_assertMainThread();
    if (!isFinished())
        m_transfer->cancel();
}

bool QVDataTask::isFinished() const
{
    return !m_transfer || m_transfer->isFinished();
}
