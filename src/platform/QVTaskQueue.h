#pragma once

#include <QObject>

#include <deque>
#include <functional>
#include <mutex>

/// Runs functions on the thread that this object lives on, from its event loop, in the order of the calls to
/// post().
///
/// QMetaObject::invokeMethod() does the same, but a race detector does not see the locks inside Qt unless Qt
/// was built with it. Here the functions and their captures are passed under a lock that it sees. Create the
/// object before the threads that use it.
class QVTaskQueue final : public QObject
{
public:
    using Task = std::function<void()>;

    /// The threads that use it must have ended. Tasks that have not run are dropped.
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
