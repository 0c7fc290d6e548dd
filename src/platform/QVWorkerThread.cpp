#include "platform/QVWorkerThread.h"

QVWorkerThread::QVWorkerThread(const QString &name, QThread::Priority priority)
{
    m_thread.setObjectName(name);
    m_tasks.moveToThread(&m_thread);
    m_thread.start(priority);
}

QVWorkerThread::~QVWorkerThread()
{
    m_tasks.post([this] { m_thread.quit(); });
    m_thread.wait();
}
