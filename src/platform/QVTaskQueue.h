#pragma once

#include <QObject>

#include <deque>
#include <functional>
#include <mutex>

/// Functions for the thread that this object lives on. Its event loop runs them in their order.
///
/// QMetaObject::invokeMethod() does the same, but a race detector sees nothing of the locks inside Qt unless
/// Qt was built with it. Here the functions and what they capture are handed over under a lock of our own.
/// The object must have been created before the threads that use it.
class QVTaskQueue final : public QObject
{
public:
    using Task = std::function<void()>;

    /// The threads that used it have ended. Tasks that have not run are dropped.
    ~QVTaskQueue() override;

    /// May be called on any thread.
    void post(Task task);

protected:
    void customEvent(QEvent *event) override;

private:
    [[nodiscard]] Task take();

    std::mutex m_mutex;
    std::deque<Task> m_tasks;
};
