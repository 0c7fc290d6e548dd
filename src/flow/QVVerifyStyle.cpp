#include "flow/QVVerifyStyle.h"

QString qv_typeStringForVerifyStyle(QVVerifyStyle style)
{
    switch (style) {
    case QVVerifyStyleEmbed:
        return QStringLiteral("embed");
    case QVVerifyStylePopup:
        return QStringLiteral("popup");
    case QVVerifyStyleInvisible:
        return QStringLiteral("invisible");
    }
    return QStringLiteral("");
}
