#include "settings/QVLocalization.h"

#include "settings/QVBundle.h"
#include "settings/QVConfigurationManager.h"

QString qv_localizedStringForKey(const QString &key, const QString &value)
{
    const QString table = QStringLiteral("QVLocalizable");
    const auto &settings = QVConfigurationManager::sharedManager();
    const auto hostBundle = settings.hostLanguageBundle();
    if (const QString text = hostBundle ? hostBundle->text(key, table) : QString(); !text.isNull())
        return text;
    const auto bundle = settings.languageBundle();
    return bundle ? bundle->localizedString(key, value, table) : QString();
}
