#pragma once

#include <QImage>
#include <QPixmap>

class QPainter;

/// A picture stretched to a widget's size. The stretched version is kept, in the device's own pixels,
/// so that repainting a small part costs no more than copying it.
class QVScaledPicture
{
public:
    /// Bounds the memory where a host zooms a scene that shows a widget.
    static constexpr qreal largestRatio = 4;

    [[nodiscard]] const QImage &image() const { return m_image; }
    void setImage(const QImage &image);
    /// Whether it hides everything below.
    [[nodiscard]] bool isOpaque() const { return !m_image.isNull() && !m_image.hasAlphaChannel(); }
    void paint(QPainter &painter, QSize size);

private:
    QImage m_image;
    QPixmap m_scaled;
};
