#include "settings/QVSystemFont.h"

#include <QFontInfo>
#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace {

// 11 points at 96 dots per inch, the largest default size of a desktop.
constexpr double usualPixelSize = 15;
constexpr double largestScale = 2;

} // namespace

double qv_textScale()
{
    return std::clamp(QFontInfo(QGuiApplication::font()).pixelSize() / usualPixelSize, 1.0, largestScale);
}

QFont qv_systemFont(int pixelSize)
{
    QFont font(QGuiApplication::font().families());
    font.setPixelSize(static_cast<int>(std::lround(pixelSize * qv_textScale())));
    // Otherwise a painter would take the unset properties from the font of its widget.
    font.setResolveMask(QFont::AllPropertiesResolved);
    return font;
}
