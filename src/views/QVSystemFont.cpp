#include "views/QVSystemFont.h"

#include <QApplication>
#include <QFontInfo>

#include <algorithm>
#include <cmath>

namespace {

// 11 points at 96 dots an inch, the largest that a desktop starts out with.
constexpr double usualPixelSize = 15;
constexpr double largestScale = 2;

} // namespace

double qv_textScale()
{
    return std::clamp(QFontInfo(QApplication::font()).pixelSize() / usualPixelSize, 1.0, largestScale);
}

QFont qv_systemFont(int pixelSize)
{
    QFont font(QApplication::font().families());
    font.setPixelSize(static_cast<int>(std::lround(pixelSize * qv_textScale())));
    // A painter takes what is left open from its widget's font.
    font.setResolveMask(QFont::AllPropertiesResolved);
    return font;
}
