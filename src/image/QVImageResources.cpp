#include "image/QVImageResources.h"

namespace {

// The same address is hardly ever loaded twice.
constexpr qsizetype mostInMemory = 2;

} // namespace

QVImageResources::QVImageResources()
    : m_memory(mostInMemory)
{
}

QVImageResources::~QVImageResources()
{
    // Loads first: they use the members.
    qDeleteAll(QObjectList(children()));
}

QImage QVImageResources::remembered(const QString &address) const
{
    const QImage *image = m_memory.object(address);
    return image ? *image : QImage();
}

void QVImageResources::remember(const QString &address, const QImage &image)
{
    m_memory.insert(address, new QImage(image));
}

QVBackgroundWork *QVImageResources::start(const QVBackgroundWork::Work &work)
{
    const auto inTurn = [this, work](const std::stop_token &stop) {
        doInTurn(work, stop);
    };
    return new QVBackgroundWork(inTurn, &m_works);
}

void QVImageResources::doInTurn(const QVBackgroundWork::Work &work, const std::stop_token &stop)
{
    std::unique_lock lock(m_mutex);
    if (!m_changed.wait(lock, stop, [this] { return m_free > 0; }) || stop.stop_requested())
        return;
    --m_free;
    lock.unlock();
    work(stop);
    lock.lock();
    ++m_free;
    m_changed.notify_one();
}
