#pragma once

#include "platform/QVWorkerThread.h"

#include <QStringList>

#include <atomic>
#include <memory>

/// The pictures on disk, in a thread of its own: nobody waits for a slow disk but a picture that is read from
/// it. Used on the user-interface thread.
class QVPictureDisk : public QObject
{
    Q_OBJECT

public:
    QVPictureDisk();
    ~QVPictureDisk() override;

    /// Starts making the folder.
    void prepare();
    /// Whether a picture was written here by this process. What earlier ones wrote is not used.
    [[nodiscard]] bool holds(const QString &address) const { return m_written.contains(address); }
    void write(const QString &address, const QByteArray &bytes);
    /// Answers by wasRead().
    void read(const QString &address);

Q_SIGNALS:
    /// Empty where the picture is no longer there.
    void wasRead(const QString &address, const QByteArray &bytes);

private:
    /// What the thread works with.
    class Store;

    void post(QVTaskQueue::Task task);

    std::unique_ptr<Store> m_store;
    std::atomic<bool> m_isEnding = false;
    QStringList m_written;
    // Last: ends before what it works with.
    QVWorkerThread m_thread;
};
