#pragma once

#include "platform/QVBackgroundWork.h"

#include <QCache>
#include <QImage>
#include <QNetworkAccessManager>

#include <utility>

/// What all picture loads share: the way to the network with its cache on disk, the decoded
/// pictures last used, and the work on threads of their own.
class QVImageResources
{
public:
    QVImageResources();
    QVImageResources(const QVImageResources &) = delete;
    QVImageResources &operator=(const QVImageResources &) = delete;

    [[nodiscard]] QNetworkAccessManager &network() { return m_network; }
    /// Starts work that ends with the resources at the latest.
    QVBackgroundWork *start(const QVBackgroundWork::Work &work)
    {
        return new QVBackgroundWork(work, &m_works);
    }
    [[nodiscard]] bool isWorking() const { return !m_works.children().isEmpty(); }

    [[nodiscard]] QImage remembered(const QString &address) const;
    void remember(const QString &address, const QImage &image);
    [[nodiscard]] bool isOnDisk(const QString &address);
    /// Lets one load at a time write to the disk. What one download leaves behind when it fails is taken
    /// away by its address, and that must never meet what another is still writing.
    [[nodiscard]] bool tryOpenDisk() { return !std::exchange(m_isDiskOpen, true); }
    void closeDisk() { m_isDiskOpen = false; }
    /// Takes off the disk what turned out to be no picture, or too large for one. Only for the load
    /// that has opened it.
    void forgetOnDisk(const QString &address);

private:
    QNetworkAccessManager m_network;
    QCache<QString, QImage> m_memory;
    bool m_isDiskOpen = false;
    QObject m_works;
};
