#pragma once

#include "image/QVPictureDisk.h"
#include "platform/QVBackgroundWork.h"

#include <QCache>
#include <QImage>

/// What all picture loads share: the decoded pictures last used, those on disk, and the work on threads of
/// their own. Owns the loads that are under way.
class QVImageResources : public QObject
{
    Q_OBJECT

public:
    QVImageResources();
    ~QVImageResources() override;

    /// Starts work that ends with the resources at the latest.
    QVBackgroundWork *start(const QVBackgroundWork::Work &work)
    {
        return new QVBackgroundWork(work, &m_works);
    }
    [[nodiscard]] bool isWorking() const { return !m_works.children().isEmpty(); }

    [[nodiscard]] QVPictureDisk &disk() { return m_disk; }
    [[nodiscard]] QImage remembered(const QString &address) const;
    void remember(const QString &address, const QImage &image);

private:
    QCache<QString, QImage> m_memory;
    QVPictureDisk m_disk;
    QObject m_works;
};
