#pragma once

#include <QObject>

#include <functional>
#include <stop_token>
#include <thread>

/// Runs a function on a new thread and emits finished() on the thread that created this. Deletes itself after
/// that.
///
/// If it is destroyed before, it asks the work to stop and waits for it. So the work must check its stop
/// token, or be short.
class QVBackgroundWork final : public QObject
{
    Q_OBJECT

public:
    using Work = std::function<void(const std::stop_token &)>;

    /// Starts at once. If no thread can be created, the work is not done, but finished() is emitted.
    QVBackgroundWork(const Work &work, QObject *parent);

    /// Asks the work to stop, without waiting.
    void stop() { m_thread.request_stop(); }

Q_SIGNALS:
    /// Never emitted before the constructor has returned.
    void finished();

protected:
    void customEvent(QEvent *event) override;

private:
    void postEnd();

    std::jthread m_thread;
};
