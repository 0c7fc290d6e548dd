#include "settings/QVOneLine.h"

#include <QString>

QString qv_oneLine(const QString &text)
{
    constexpr qsizetype longestLine = 400;
    QString line = text.left(longestLine);
    for (QChar &character : line) {
        if (character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
            character == QChar::ParagraphSeparator)
            character = u' ';
    }
    return line;
}
