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

class QVPictureDisk::Store
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
        // From Qt 6.8 on an entry without a header is taken for a broken one.
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
    // A process that ends waits for the call under way on a slow disk, and for no other.
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
