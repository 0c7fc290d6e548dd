#include "views/QVColors.h"

#include "views/QVReadableColor.h"

namespace {

constexpr QColor secondaryText(102, 102, 102);
constexpr QColor support(205, 205, 206);

} // namespace

QColor QVColors::white()
{
    return Qt::white;
}

QColor QVColors::caption()
{
    return qv_readableColor(secondaryText, surface);
}

QColor QVColors::promptText()
{
    return qv_readableColor(secondaryText, promptBar);
}

QColor QVColors::doneTitle()
{
    return qv_readableColor(accent, strip);
}

QColor QVColors::placeholder()
{
    return qv_readableColor(lightGray, Qt::white);
}

QColor QVColors::supportText()
{
    return qv_readableColor(support, surface);
}
