#include "image/QVPictureDisk.h"

#include "platform/QVPictureCacheFolder.h"

#include <QNetworkDiskCache>
#include <QUrl>

#include <utility>

namespace {

constexpr qint64 bytesOnDisk = 16 << 20;
// A picture is hardly ever loaded twice; the disk cache has room for some hundred.
constexpr qsizetype mostRemembered = 100;

} // namespace

class QVPictureDisk::Store
{
public:
    void open()
    {
        // If the folder cannot be made, it is not tried again.
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
        // Qt 6.8 and later treat an entry without a header as broken.
        description.setRawHeaders({{"Content-Length", QByteArray::number(bytes.size())}});
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
    : m_store(std::make_unique<Store>())
    , m_thread(QStringLiteral("quarvo disk"), QThread::LowPriority)
{
}

QVPictureDisk::~QVPictureDisk()
{
    m_isEnding = true;
    m_thread.post([this] { m_store.reset(); });
}

void QVPictureDisk::post(QVTaskQueue::Task task)
{
    // At its end the process waits for the task under way on a slow disk, but not for those still queued.
    m_thread.post([this, task = std::move(task)] {
        if (!m_isEnding)
            task();
    });
}

void QVPictureDisk::prepare()
{
    post([this] { m_store->open(); });
}

void QVPictureDisk::write(const QString &address, const QByteArray &bytes)
{
    if (m_written.size() == mostRemembered)
        m_written.removeFirst();
    m_written.append(address);
    post([this, address, bytes] { m_store->write(QUrl(address), bytes); });
}

void QVPictureDisk::read(const QString &address)
{
    post([this, address] {
        m_thread.answer(
            [this, address, bytes = m_store->read(QUrl(address))] { Q_EMIT wasRead(address, bytes); });
    });
}
