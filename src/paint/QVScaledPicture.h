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
    /// \a scaled is the same in the pixels in which it is painted, if somebody has made it already.
    void setImage(const QImage &image, const QImage &scaled = {});
    /// The pixels that a widget of that size covers.
    [[nodiscard]] static QSize pixelsOf(QSize size, qreal ratio);
    /// Whether the picture hides everything behind it.
    [[nodiscard]] bool isOpaque() const { return !m_image.isNull() && !m_image.hasAlphaChannel(); }
    void paint(QPainter &painter, QSize size);

private:
    QImage m_image;
    QPixmap m_scaled;
};
