#include "views/QVSystemFont.h"

#include <QApplication>

QFont qv_systemFont(int pixelSize)
{
    QFont font(QApplication::font().families());
    font.setPixelSize(pixelSize);
    // A painter takes what is left open from its widget's font.
    font.setResolveMask(QFont::AllPropertiesResolved);
    return font;
}
