#include "layout/QVLayoutConstraint.h"

#include <cmath>

bool qv_isHorizontal(QVLayoutAttribute attribute)
{
    return attribute <= QVLayoutAttribute::Width;
}

bool qv_isLength(QVLayoutAttribute attribute)
{
    return attribute == QVLayoutAttribute::Width || attribute == QVLayoutAttribute::Height;
}

QString qv_attributeName(QVLayoutAttribute attribute)
{
    switch (attribute) {
    case QVLayoutAttribute::Left:
        return QStringLiteral("left");
    case QVLayoutAttribute::Right:
        return QStringLiteral("right");
    case QVLayoutAttribute::CenterX:
        return QStringLiteral("centerX");
    case QVLayoutAttribute::Width:
        return QStringLiteral("width");
    case QVLayoutAttribute::Top:
        return QStringLiteral("top");
    case QVLayoutAttribute::Bottom:
        return QStringLiteral("bottom");
    case QVLayoutAttribute::CenterY:
        return QStringLiteral("centerY");
    case QVLayoutAttribute::Height:
        return QStringLiteral("height");
    }
    return {};
}

bool QVLayoutConstraint::isFinite() const
{
    return std::isfinite(multiplier) && std::isfinite(offset);
}

bool QVLayoutConstraint::hasFormOf(const QVLayoutConstraint &other) const
{
    QVLayoutConstraint same = other;
    same.offset = offset;
    return *this == same;
}

QString QVLayoutConstraint::description(const std::function<QString(ItemId)> &nameOf) const
{
    QString text = nameOf(item) + u'.' + qv_attributeName(attribute) + QStringLiteral(" = ");
    if (target == 0)
        return text + QString::number(offset);
    text += nameOf(target) + u'.' + qv_attributeName(targetAttribute);
    if (multiplier != 1)
        text += QStringLiteral(" * ") + QString::number(multiplier);
    if (offset != 0)
        text +=
            (offset < 0 ? QStringLiteral(" - ") : QStringLiteral(" + ")) + QString::number(std::abs(offset));
    return text;
}
