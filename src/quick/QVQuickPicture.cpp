#include "quick/QVQuickPicture.h"

#include "settings/QVBundleImage.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <utility>

QVQuickPicture::QVQuickPicture(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void QVQuickPicture::setName(const QString &name)
{
    if (std::exchange(m_name, name) == name)
        return;
    setImage(qv_imageFromBundleWithName(name).toImage());
    setImplicitSize(m_image.deviceIndependentSize().width(), m_image.deviceIndependentSize().height());
    Q_EMIT nameChanged();
}

void QVQuickPicture::setImage(const QImage &image)
{
    m_image = image;
    m_isNew = true;
    update();
}

QSGNode *QVQuickPicture::updatePaintNode(QSGNode *node, UpdatePaintNodeData * /*data*/)
{
    if (m_image.isNull() || width() <= 0 || height() <= 0) {
        delete node;
        return nullptr;
    }
    auto *picture = static_cast<QSGImageNode *>(node);
    if (!picture) {
        picture = window()->createImageNode();
        picture->setOwnsTexture(true);
        picture->setFiltering(QSGTexture::Linear);
        m_isNew = true;
    }
    if (std::exchange(m_isNew, false))
        picture->setTexture(window()->createTextureFromImage(m_image));
    picture->setRect(boundingRect());
    return picture;
}
