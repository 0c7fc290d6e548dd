#include "paint/QVScaledPicture.h"

#include "image/QVSmoothScaling.h"

#include <QPainter>

void QVScaledPicture::setImage(const QImage &image, const QImage &scaled)
{
    m_image = image;
    m_scaled = QPixmap::fromImage(scaled);
}

QSize QVScaledPicture::pixelsOf(QSize size, qreal ratio)
{
    return (QSizeF(size) * qBound(1.0, ratio, largestRatio)).toSize();
}

void QVScaledPicture::paint(QPainter &painter, QSize size)
{
    if (m_image.isNull() || size.isEmpty())
        return;
    // The painter's ratio, not the device's: a widget that is rendered elsewhere reports that of its screen.
    const qreal ratio = qBound(1.0, painter.deviceTransform().m11(), largestRatio);
    const QSize pixels = pixelsOf(size, ratio);
    if (m_scaled.size() != pixels)
        m_scaled = QPixmap::fromImage(qv_smoothlyScaled(m_image, pixels));
    m_scaled.setDevicePixelRatio(ratio);
    painter.drawPixmap(QPointF(), m_scaled);
}
