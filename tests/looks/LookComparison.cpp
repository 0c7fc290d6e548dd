#include "looks/LookComparison.h"

#include <QDir>
#include <QPainter>

#include <algorithm>
#include <map>

namespace {

/// Another release of the font renderer draws edges a little lighter or darker, and may move them by a pixel.
constexpr int channelTolerance = 24;
constexpr int tileSide = 16;
constexpr int differingPixelsPerTile = 4;

QString pictureOf(const QString &name)
{
    return QStringLiteral(QUARVO_LOOKS_PICTURES "/%1.png").arg(name);
}

/// Whether a pixel lies between what is around the same place of the \a other picture.
bool isFoundIn(const QImage &other, int x, int y, QRgb pixel)
{
    int low[3] = {255, 255, 255};
    int high[3] = {0, 0, 0};
    for (int j = std::max(y - 1, 0); j <= std::min(y + 1, other.height() - 1); ++j) {
        const auto *line = reinterpret_cast<const QRgb *>(other.constScanLine(j));
        for (int i = std::max(x - 1, 0); i <= std::min(x + 1, other.width() - 1); ++i) {
            for (int c = 0; c < 3; ++c) {
                const int value = static_cast<int>(line[i] >> (8 * c) & 0xff);
                low[c] = std::min(low[c], value);
                high[c] = std::max(high[c], value);
            }
        }
    }
    for (int c = 0; c < 3; ++c) {
        const int value = static_cast<int>(pixel >> (8 * c) & 0xff);
        if (value < low[c] - channelTolerance || value > high[c] + channelTolerance)
            return false;
    }
    return true;
}

/// The pixels that are not found in the other picture, in tiles that have too many of them.
QList<QPoint> differences(const QImage &expected, const QImage &seen)
{
    std::map<std::pair<int, int>, QList<QPoint>> tiles;
    for (int y = 0; y < seen.height(); ++y) {
        for (int x = 0; x < seen.width(); ++x) {
            const QRgb one = seen.pixel(x, y);
            const QRgb other = expected.pixel(x, y);
            if (one != other && (!isFoundIn(expected, x, y, one) || !isFoundIn(seen, x, y, other)))
                tiles[{x / tileSide, y / tileSide}].append({x, y});
        }
    }
    QList<QPoint> result;
    for (const auto &[tile, points] : tiles) {
        if (points.size() > differingPixelsPerTile)
            result += points;
    }
    return result;
}

void writeDifference(const QString &name, const QImage &expected, const QImage &seen,
                     const QList<QPoint> &points)
{
    QDir().mkpath(QStringLiteral(QUARVO_LOOKS_DIFFERENCES));
    const int width = std::max(expected.width(), seen.width());
    QImage sheet(3 * width, std::max(expected.height(), seen.height()), QImage::Format_RGB32);
    sheet.fill(Qt::gray);
    QPainter painter(&sheet);
    painter.drawImage(0, 0, expected);
    painter.drawImage(width, 0, seen);
    painter.setOpacity(0.3);
    painter.drawImage(2 * width, 0, seen);
    painter.setOpacity(1);
    painter.setPen(Qt::red);
    for (const QPoint &point : points)
        painter.drawPoint(point + QPoint(2 * width, 0));
    painter.end();
    const QString path = QStringLiteral(QUARVO_LOOKS_DIFFERENCES "/%1.png").arg(name);
    sheet.save(path);
    qInfo().noquote() << "expected, seen and difference:" << path;
}

} // namespace

bool LookComparison::matches(const QString &name, const QImage &seen)
{
    QImage actual = seen.convertToFormat(QImage::Format_RGB32);
    actual.setDevicePixelRatio(1);
    if (qEnvironmentVariableIsSet("QUARVO_UPDATE_LOOKS"))
        return actual.save(pictureOf(name), "PNG", 0);
    const QImage expected = QImage(pictureOf(name)).convertToFormat(QImage::Format_RGB32);
    const bool hasSize = expected.size() == actual.size();
    const QList<QPoint> points = hasSize ? differences(expected, actual) : QList<QPoint>();
    const bool isAlike = hasSize && points.isEmpty();
    if (!isAlike || qEnvironmentVariableIsSet("QUARVO_SHOW_LOOKS"))
        writeDifference(name, expected, actual, points);
    return isAlike;
}

QImage LookComparison::photograph()
{
    QImage image(400, 230, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient sky(0, 0, 400, 230);
    sky.setColorAt(0, QColor(240, 240, 250));
    sky.setColorAt(1, QColor(40, 60, 50));
    painter.fillRect(image.rect(), sky);
    return image;
}
