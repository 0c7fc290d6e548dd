#include "demo/WindowSize.h"

#include <QRegularExpression>

std::optional<QSize> windowSizeFrom(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    const QSize bounded = size.expandedTo({smallestSide, smallestSide}).boundedTo({largestSide, largestSide});
    if (!match.hasMatch() || size != bounded)
        return std::nullopt;
    return size;
}
