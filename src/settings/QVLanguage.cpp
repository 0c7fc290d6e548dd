#include "settings/QVLanguage.h"

#include <QLocale>

QString qv_languageFolderName(const QString &languageTag)
{
    for (const auto *name : {"zh-Hans", "zh-Hant"}) {
        if (languageTag.contains(QLatin1String(name)))
            return QString::fromLatin1(name);
    }
    return QStringLiteral("en");
}

QString qv_deviceLanguage()
{
    return qv_deviceLanguage(QLocale::system().uiLanguages());
}

QString qv_deviceLanguage(const QStringList &preferredLanguages)
{
    if (preferredLanguages.isEmpty())
        return {};
    // Desktops name Chinese by country (zh-CN, zh-TW). The language folders are named by script, which
    // QLocale derives from the country.
    const QLocale locale(preferredLanguages.first());
    return QLocale::languageToCode(locale.language()) + u'-' + QLocale::scriptToCode(locale.script()) + u'-' +
           QLocale::territoryToCode(locale.territory());
}
