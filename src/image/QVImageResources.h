#pragma once

#include "image/QVPictureDisk.h"
#include "platform/QVBackgroundWork.h"

#include <QCache>
#include <QImage>

#include <condition_variable>
#include <mutex>

/// What all picture loads share: the decoded pictures last used, those on disk, and the work on threads of
/// their own. Owns the loads that are under way.
class QVImageResources : public QObject
{
    Q_OBJECT

public:
    QVImageResources();
    ~QVImageResources() override;

    /// Starts work that ends with the resources at the latest. Two works are done at a time, which bounds
    /// the memory of decoding and how long the end of a process can take; the others wait, and are
    /// dropped where they are stopped meanwhile.
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
