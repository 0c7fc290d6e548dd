#pragma once

#include <QObject>

#include <functional>
#include <stop_token>
#include <thread>

/// Work on a thread of its own, which is reported where it was started. Deletes itself after that.
///
/// Destroyed before, it asks the work to stop and waits for it. Work must therefore heed its stop token,
/// or be short.
class QVBackgroundWork final : public QObject
{
    Q_OBJECT

public:
    using Work = std::function<void(const std::stop_token &)>;

    /// Starts at once. Where no thread is to be had, nothing is done, and reported as finished.
    QVBackgroundWork(const Work &work, QObject *parent);

    /// Asks the work to stop, and waits for nothing.
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
