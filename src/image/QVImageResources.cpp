#include "image/QVImageResources.h"

namespace {

// Some ten captcha pictures of double resolution.
constexpr qsizetype bytesInMemory = 16 << 20;

} // namespace

QVImageResources::QVImageResources()
    : m_memory(bytesInMemory)
{
}

QVImageResources::~QVImageResources()
{
    // Loads use what is destroyed next.
    qDeleteAll(QObjectList(children()));
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
