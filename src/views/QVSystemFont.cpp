#include "views/QVSystemFont.h"

#include <QApplication>
#include <QFontInfo>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace {

// 11 points at 96 dots an inch, the largest that a desktop starts out with.
constexpr double usualPixelSize = 15;
constexpr double largestScale = 2;

QFont fontOfSize(int pixelSize)
{
    QFont font(QApplication::font().families());
    font.setPixelSize(pixelSize);
    // A painter takes what is left open from its widget's font.
    font.setResolveMask(QFont::AllPropertiesResolved);
    return font;
}

bool fits(const QString &line, const QFont &font, QSizeF room)
{
    const QFontMetricsF metrics(font);
    return metrics.height() <= room.height() && metrics.horizontalAdvance(line) <= room.width();
}

} // namespace

double qv_textScale()
{
    return std::clamp(QFontInfo(QApplication::font()).pixelSize() / usualPixelSize, 1.0, largestScale);
}

QFont qv_systemFont(int pixelSize)
{
    return fontOfSize(static_cast<int>(std::lround(pixelSize * qv_textScale())));
}

QFont qv_systemFont(int pixelSize, const QString &line, QSizeF room)
{
    return qv_fittingFont(qv_systemFont(pixelSize), line, room, pixelSize);
}

QFont qv_fittingFont(QFont font, const QString &line, QSizeF room, int smallestPixelSize)
{
    while (font.pixelSize() > smallestPixelSize && !fits(line, font, room))
        font.setPixelSize(font.pixelSize() - 1);
    return font;
}
