#pragma once

#include <QImage>
#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <cstdlib>

/// What a widget looks like on a screen of a given pixel ratio.
inline QImage pixelsOf(QWidget &widget, qreal ratio = 1)
{
    QImage image((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    widget.render(&image);
    return image;
}

/// The smallest rectangle that holds all pixels that differ from \a background.
inline QRect differingFrom(const QImage &image, const QColor &background)
{
    QRect result;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != background)
                result |= QRect(x, y, 1, 1);
        }
    }
    return result;
}

/// How far the pixels of two pictures are apart in any channel.
inline int farthest(const QImage &one, const QImage &other)
{
    int most = one.size() == other.size() ? 0 : 255;
    for (qsizetype i = 0; most < 255 && i < one.sizeInBytes(); ++i)
        most = std::max(most, std::abs(one.constBits()[i] - other.constBits()[i]));
    return most;
}
