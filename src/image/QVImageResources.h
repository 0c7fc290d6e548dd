#pragma once

#include "image/QVPictureDisk.h"
#include "platform/QVBackgroundWork.h"

#include <QCache>
#include <QImage>

#include <condition_variable>
#include <mutex>

/// What all picture loads share: the last decoded pictures, the pictures on disk, and the work on other
/// threads. Owns the loads that are under way.
class QVImageResources : public QObject
{
    Q_OBJECT

public:
    QVImageResources();
    ~QVImageResources() override;

    /// Starts \a work on another thread. It is stopped when the resources are destroyed. At most two run at a
    /// time, which limits the memory for decoding and the time that the end of the process takes. The others
    /// wait, and do not run if they are stopped meanwhile.
    QVBackgroundWork *start(const QVBackgroundWork::Work &work);
    [[nodiscard]] bool isWorking() const { return !m_works.children().isEmpty(); }

    [[nodiscard]] QVPictureDisk &disk() { return m_disk; }
    [[nodiscard]] QImage remembered(const QString &address) const;
    void remember(const QString &address, const QImage &image);

private:
    void doInTurn(const QVBackgroundWork::Work &work, const std::stop_token &stop);

    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    int m_free = 2;
    QCache<QString, QImage> m_memory;
    QVPictureDisk m_disk;
    QObject m_works;
};
