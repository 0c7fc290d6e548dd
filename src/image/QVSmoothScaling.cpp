#include "image/QVSmoothScaling.h"

#include <algorithm>
#include <cstring>

namespace {

QImage stripScaled(const QImage &image, QSize size)
{
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// Qt scales larger pictures on the threads of its global pool and waits for them. A host that keeps these
// busy would block its own window. A strip is small enough that Qt does not use the pool.
constexpr qsizetype pixelsPerStrip = qsizetype{1} << 16;

/// Scales only the width. Rows do not affect each other, so that strips of rows fit together.
QImage scaledInWidth(const QImage &image, int width)
{
    QImage wide(width, image.height(), image.format());
    const int rows = int(std::max<qsizetype>(1, pixelsPerStrip / std::max(width, image.width())));
    for (int y = 0; y < image.height(); y += rows) {
        const int count = std::min(rows, image.height() - y);
        const QImage strip = stripScaled(image.copy(0, y, image.width(), count), {width, count});
        for (int row = 0; row < count && !strip.isNull() && !wide.isNull(); ++row)
            std::memcpy(wide.scanLine(y + row), strip.constScanLine(row), size_t(width) * sizeof(QRgb));
    }
    return wide;
}

/// Scales only the height. Columns do not affect each other, so that strips of columns fit together.
QImage scaledInHeight(const QImage &image, int height)
{
    QImage high(image.width(), height, image.format());
    const int columns = int(std::max<qsizetype>(1, pixelsPerStrip / std::max(height, image.height())));
    for (int x = 0; x < image.width(); x += columns) {
        const int count = std::min(columns, image.width() - x);
        const QImage strip = stripScaled(image.copy(x, 0, count, image.height()), {count, height});
        for (int row = 0; row < height && !strip.isNull() && !high.isNull(); ++row)
            std::memcpy(high.scanLine(row) + size_t(x) * sizeof(QRgb), strip.constScanLine(row),
                        size_t(count) * sizeof(QRgb));
    }
    return high;
}

} // namespace

QImage qv_smoothlyScaled(const QImage &image, QSize size)
{
    const auto format = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    return scaledInHeight(scaledInWidth(image.convertToFormat(format), size.width()), size.height());
}
