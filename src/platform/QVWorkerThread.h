#pragma once

#include "platform/QVTaskQueue.h"

#include <QThread>

/// A thread with an event loop. The thread that created it posts functions to it, and it posts functions back
/// as answers.
class QVWorkerThread
{
public:
    explicit QVWorkerThread(const QString &name, QThread::Priority priority = QThread::InheritPriority);
    /// Returns once everything that was posted has run. Answers that have not run are dropped.
    ~QVWorkerThread();
    QVWorkerThread(const QVWorkerThread &) = delete;
    QVWorkerThread &operator=(const QVWorkerThread &) = delete;

    /// Runs \a task on the thread.
    void post(QVTaskQueue::Task task) { m_tasks.post(std::move(task)); }
    /// Runs \a task on the thread that created this. Called on the worker's thread.
    void answer(QVTaskQueue::Task task) { m_answers.post(std::move(task)); }

private:
    QThread m_thread;
    QVTaskQueue m_tasks;
    QVTaskQueue m_answers;
};
