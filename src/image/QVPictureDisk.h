#pragma once

#include "platform/QVWorkerThread.h"

#include <QStringList>

#include <atomic>
#include <memory>

/// The pictures on disk. The disk is accessed on a worker thread, so that a slow one delays only the picture
/// that is read from it. Used on the user-interface thread.
class QVPictureDisk : public QObject
{
    Q_OBJECT

public:
    QVPictureDisk();
    ~QVPictureDisk() override;

    /// Makes the folder in the background.
    void prepare();
    /// Whether a picture was written here by this process. What earlier ones wrote is not used.
    [[nodiscard]] bool holds(const QString &address) const { return m_written.contains(address); }
    void write(const QString &address, const QByteArray &bytes);
    /// The answer is the signal wasRead().
    void read(const QString &address);

Q_SIGNALS:
    /// \a bytes are empty if the picture is no longer there.
    void wasRead(const QString &address, const QByteArray &bytes);

private:
    /// The cache, used on the thread only.
    class Store;

    void post(QVTaskQueue::Task task);

    std::unique_ptr<Store> m_store;
    std::atomic<bool> m_isEnding = false;
    QStringList m_written;
    // Last, so that it is destroyed first: its tasks use the members above.
    QVWorkerThread m_thread;
};
