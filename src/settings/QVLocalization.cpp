#include "settings/QVLocalization.h"

#include "settings/QVBundle.h"
#include "settings/QVConfigurationManager.h"

QString qv_localizedStringForKey(const QString &key, const QString &value)
{
    const auto bundle = QVConfigurationManager::sharedManager().languageBundle();
    return bundle ? bundle->localizedString(key, value, QStringLiteral("QVLocalizable")) : QString();
}
