#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QImage>
#include <QPixmap>

class QPainter;

/// A picture stretched to the size of a widget. The stretched version is kept, in device pixels, so that
/// repainting a small part only copies it.
class QUARVO_CORE_EXPORT QVScaledPicture
{
public:
    /// The largest pixel ratio. Limits the memory if a host zooms into a graphics scene with the widget.
    static constexpr qreal largestRatio = 4;

    [[nodiscard]] const QImage &image() const { return m_image; }
    void setImage(const QImage &image);
    /// Whether the picture hides everything behind it.
    [[nodiscard]] bool isOpaque() const { return !m_image.isNull() && !m_image.hasAlphaChannel(); }
    void paint(QPainter &painter, QSize size);

private:
    QImage m_image;
    QPixmap m_scaled;
};
