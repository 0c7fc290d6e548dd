#include "settings/QVColors.h"

#include "settings/QVConfigurationManager.h"
#include "settings/QVReadableColor.h"

#include <QGuiApplication>
#include <QPalette>

namespace {

constexpr QColor usualAccent(65, 141, 251);
constexpr QColor secondaryText(102, 102, 102);

bool isDark()
{
    constexpr int middle = 128;
    const QVAppearance chosen = QVConfigurationManager::sharedManager().appearance();
    if (chosen != QVAppearance::System)
        return chosen == QVAppearance::Dark;
    return QGuiApplication::palette().color(QPalette::Window).lightness() < middle;
}

QColor chosen(const QColor &light, const QColor &dark)
{
    return isDark() ? dark : light;
}

} // namespace

QColor QVColors::accent()
{
    const QColor own = QVConfigurationManager::sharedManager().accentColor();
    return own.isValid() ? own : usualAccent;
}

QColor QVColors::surface()
{
    return chosen(QColor(255, 255, 255, 242), QColor(30, 30, 36, 242));
}

QColor QVColors::strip()
{
    return chosen(QColor(244, 244, 244), QColor(44, 44, 52));
}

QColor QVColors::stripHover()
{
    return chosen(QColor(0, 0, 0, 12), QColor(255, 255, 255, 20));
}

QColor QVColors::field()
{
    return chosen(Qt::white, QColor(24, 24, 30));
}

QColor QVColors::fieldText()
{
    return chosen(Qt::black, Qt::white);
}

QColor QVColors::fieldBorder()
{
    return chosen(QColor(170, 170, 170), QColor(110, 110, 122));
}

QColor QVColors::white()
{
    return Qt::white;
}

QColor QVColors::caption()
{
    return qv_readableColor(chosen(secondaryText, QColor(205, 205, 206)), surface());
}

QColor QVColors::promptText()
{
    return qv_readableColor(secondaryText, promptBar);
}

QColor QVColors::doneTitle()
{
    return qv_readableColor(accent(), strip());
}

QColor QVColors::placeholder()
{
    return qv_readableColor(chosen(QColor(170, 170, 170), QColor(128, 128, 138)), field());
}

QColor QVColors::supportText()
{
    return qv_readableColor(chosen(QColor(205, 205, 206), QColor(96, 96, 106)), surface());
}
