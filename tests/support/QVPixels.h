#pragma once

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QScreen>
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

/// What the screen shows, which is stale if a widget has not repainted a change. Only the offscreen platform
/// tells; elsewhere the window is rendered anew.
inline QImage onScreen(QWidget &window)
{
    QCoreApplication::processEvents();
    return QGuiApplication::platformName() == QLatin1String("offscreen")
               ? window.screen()->grabWindow(window.winId()).toImage()
               : pixelsOf(window);
}

/// How far the pixels of two pictures are apart in any channel.
inline int farthest(const QImage &one, const QImage &other)
{
    int most = one.size() == other.size() ? 0 : 255;
    for (qsizetype i = 0; most < 255 && i < one.sizeInBytes(); ++i)
        most = std::max(most, std::abs(one.constBits()[i] - other.constBits()[i]));
    return most;
}
