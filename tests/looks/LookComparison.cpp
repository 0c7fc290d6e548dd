#include "looks/LookComparison.h"

#include <QDir>
#include <QPainter>

#include <algorithm>
#include <map>

namespace {

/// Another processor rounds otherwise.
constexpr int roundingTolerance = 3;
/// Another release of the font renderer draws edges a little lighter or darker, and may move them by a pixel.
constexpr int channelTolerance = 24;
constexpr int tileSide = 16;
constexpr int differingPixelsPerTile = 4;

QString pictureOf(const QString &name)
{
    return QStringLiteral(QUARVO_LOOKS_PICTURES "/%1.png").arg(name);
}

/// What drew a picture is kept in it.
const QString renderer = QStringLiteral("Renderer");

QString thisRenderer()
{
    return QStringLiteral("Qt %1 on %2").arg(QLatin1String(qVersion()), QSysInfo::prettyProductName());
}

bool isNear(QRgb one, QRgb other)
{
    return std::abs(qRed(one) - qRed(other)) <= roundingTolerance &&
           std::abs(qGreen(one) - qGreen(other)) <= roundingTolerance &&
           std::abs(qBlue(one) - qBlue(other)) <= roundingTolerance;
}

/// Whether the pixels around are of the same colour, so that it is no edge.
bool isFlat(const QImage &image, int x, int y)
{
    for (int j = std::max(y - 1, 0); j <= std::min(y + 1, image.height() - 1); ++j) {
        for (int i = std::max(x - 1, 0); i <= std::min(x + 1, image.width() - 1); ++i) {
            if (image.pixel(i, j) != image.pixel(x, y))
                return false;
        }
    }
    return true;
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

/// Whether no flat colour differs, no edge does if the same renderer drew it, and few pixels of a tile do
/// elsewhere and in \a circles.
bool isAlike(const QImage &expected, const QImage &seen, const QRegion &circles)
{
    const bool isSameRenderer = expected.text(renderer) == thisRenderer();
    std::map<std::pair<int, int>, int> differing;
    for (int y = 0; y < seen.height(); ++y) {
        for (int x = 0; x < seen.width(); ++x) {
            const QRgb one = seen.pixel(x, y);
            const QRgb other = expected.pixel(x, y);
            if (one == other)
                continue;
            const bool isExact = isSameRenderer && !circles.contains(QPoint(x, y));
            if ((isExact && !isNear(one, other)) || (isFlat(seen, x, y) && isFlat(expected, x, y)))
                return false;
            const bool differs = !isFoundIn(expected, x, y, one) || !isFoundIn(seen, x, y, other);
            if (differs && ++differing[{x / tileSide, y / tileSide}] > differingPixelsPerTile)
                return false;
        }
    }
    return true;
}

/// The expected picture, the one that was seen, and how far they are apart.
void writeDifference(const QString &name, const QImage &expected, const QImage &seen)
{
    QDir().mkpath(QStringLiteral(QUARVO_LOOKS_DIFFERENCES));
    const int width = std::max(expected.width(), seen.width());
    QImage sheet(3 * width, std::max(expected.height(), seen.height()), QImage::Format_RGB32);
    sheet.fill(Qt::gray);
    QPainter painter(&sheet);
    painter.drawImage(0, 0, expected);
    painter.drawImage(width, 0, seen);
    painter.drawImage(2 * width, 0, expected);
    painter.setCompositionMode(QPainter::CompositionMode_Difference);
    painter.drawImage(2 * width, 0, seen);
    painter.end();
    const QString path = QStringLiteral(QUARVO_LOOKS_DIFFERENCES "/%1.png").arg(name);
    sheet.save(path);
    qInfo().noquote() << "expected, seen and difference:" << path;
}

} // namespace

bool LookComparison::matches(const QString &name, const QImage &seen, const QRegion &circles)
{
    QImage actual = seen.convertToFormat(QImage::Format_RGB32);
    actual.setDevicePixelRatio(1);
    actual.setText(renderer, thisRenderer());
    if (qEnvironmentVariableIsSet("QUARVO_UPDATE_LOOKS"))
        return actual.save(pictureOf(name), "PNG", 0);
    const QImage expected = QImage(pictureOf(name)).convertToFormat(QImage::Format_RGB32);
    const bool isRight = expected.size() == actual.size() && isAlike(expected, actual, circles);
    if (!isRight || qEnvironmentVariableIsSet("QUARVO_SHOW_LOOKS"))
        writeDifference(name, expected, actual);
    return isRight;
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
