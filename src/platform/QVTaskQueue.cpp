#include "platform/QVTaskQueue.h"

#include <QCoreApplication>
#include <QEvent>

QVTaskQueue::~QVTaskQueue()
{
    // The lock makes everything that the posting threads have written visible to this thread.
    const std::scoped_lock lock(m_mutex);
}

void QVTaskQueue::post(Task task)
{
    const std::scoped_lock lock(m_mutex);
    m_tasks.push_back(std::move(task));
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

void QVTaskQueue::customEvent(QEvent *)
{
    const Task task = take();
    task();
}

QVTaskQueue::Task QVTaskQueue::take()
{
    const std::scoped_lock lock(m_mutex);
    Task task = std::move(m_tasks.front());
    m_tasks.pop_front();
    return task;
}
