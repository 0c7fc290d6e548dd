#include "image/QVPictureDisk.h"

#include "platform/QVPictureCacheFolder.h"

#include <QNetworkDiskCache>
#include <QUrl>

#include <utility>

namespace {

constexpr qint64 bytesOnDisk = 16 << 20;
// Hardly a picture is asked for twice; the disk has room for some hundred.
constexpr qsizetype mostRemembered = 100;

} // namespace

class QVPictureDisk::Store : public QObject
{
public:
    void open()
    {
        // A disk that has no place for the folder is not asked again.
        const QString folder =
            std::exchange(m_wasOpened, true) ? QString() : QVPictureCacheFolder::shared().path();
        if (folder.isEmpty())
            return;
        m_cache = std::make_unique<QNetworkDiskCache>();
        m_cache->setCacheDirectory(folder);
        m_cache->setMaximumCacheSize(bytesOnDisk);
    }

    void write(const QUrl &address, const QByteArray &bytes)
    {
        open();
        QNetworkCacheMetaData description;
        description.setUrl(address);
        QIODevice *const device = m_cache ? m_cache->prepare(description) : nullptr;
        if (!device)
            return;
        if (device->write(bytes) == bytes.size())
            m_cache->insert(device);
        else
            m_cache->remove(address);
    }

    [[nodiscard]] QByteArray read(const QUrl &address) const
    {
        const std::unique_ptr<QIODevice> device(m_cache ? m_cache->data(address) : nullptr);
        return device ? device->readAll() : QByteArray();
    }

private:
    bool m_wasOpened = false;
    std::unique_ptr<QNetworkDiskCache> m_cache;
};

QVPictureDisk::QVPictureDisk()
    : m_store(new Store)
{
    m_thread.setObjectName(QStringLiteral("quarvo disk"));
    m_store->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_store, &QObject::deleteLater);
    m_thread.start(QThread::LowPriority);
}

QVPictureDisk::~QVPictureDisk()
{
    m_thread.quit();
    m_thread.wait();
}

void QVPictureDisk::prepare()
{
    QMetaObject::invokeMethod(m_store, &Store::open, Qt::QueuedConnection);
}

void QVPictureDisk::write(const QString &address, const QByteArray &bytes)
{
    if (m_written.size() == mostRemembered)
        m_written.removeFirst();
    m_written.append(address);
    QMetaObject::invokeMethod(
        m_store, [store = m_store, address, bytes] { store->write(QUrl(address), bytes); },
        Qt::QueuedConnection);
}

void QVPictureDisk::read(const QString &address)
{
    // The signal is emitted on the store's thread and received on the user-interface thread.
    QMetaObject::invokeMethod(
        m_store, [this, store = m_store, address] { Q_EMIT wasRead(address, store->read(QUrl(address))); },
        Qt::QueuedConnection);
}
