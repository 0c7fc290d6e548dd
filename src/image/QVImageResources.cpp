#include "image/QVImageResources.h"

namespace {

// An address is hardly ever used twice.
constexpr qsizetype mostInMemory = 2;

} // namespace

QVImageResources::QVImageResources()
    : m_memory(mostInMemory)
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
    m_memory.insert(address, new QImage(image));
}
