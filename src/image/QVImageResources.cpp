#include "image/QVImageResources.h"

#include "platform/QVPictureCacheFolder.h"

#include <QNetworkDiskCache>

namespace {

constexpr qint64 bytesOnDisk = 16 << 20;
// Some ten captcha pictures of double resolution.
constexpr qsizetype bytesInMemory = 16 << 20;

QNetworkDiskCache *makeDiskCache(const QString &folder, QObject *parent)
{
    auto *cache = new QNetworkDiskCache(parent);
    cache->setCacheDirectory(folder);
    cache->setMaximumCacheSize(bytesOnDisk);
    return cache;
}

} // namespace

QVImageResources::QVImageResources()
    : m_memory(bytesInMemory)
{
    const QString folder = QVPictureCacheFolder::shared().path();
    if (!folder.isEmpty())
        m_network.setCache(makeDiskCache(folder, &m_network));
}

QImage QVImageResources::remembered(const QString &address) const
{
    const QImage *image = m_memory.object(address);
    return image ? *image : QImage();
}

void QVImageResources::remember(const QString &address, const QImage &image)
{
    m_memory.insert(address, new QImage(image), image.sizeInBytes());
}

bool QVImageResources::isOnDisk(const QString &address)
{
    constexpr int okStatus = 200;
    const QUrl url(address);
    QAbstractNetworkCache *cache = m_network.cache();
    if (!cache || !url.isValid())
        return false;
    // Besides pictures the cache may hold redirects, which it does not follow.
    const QNetworkCacheMetaData found = cache->metaData(url);
    return found.attributes().value(QNetworkRequest::HttpStatusCodeAttribute).toInt() == okStatus;
}

void QVImageResources::forgetOnDisk(const QString &address)
{
    const QUrl url(address);
    QAbstractNetworkCache *cache = m_network.cache();
    if (cache && url.isValid())
        cache->remove(url);
}
