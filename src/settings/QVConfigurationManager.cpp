#include "settings/QVConfigurationManager.h"

#include "platform/QVPictureCacheFolder.h"
#include "secrets/QVDesktopStore.h"
#include "settings/QVBundle.h"
#include "settings/QVBundleImage.h"
#include "settings/QVDeviceIdentifier.h"
#include "settings/QVLanguage.h"
#include "settings/QVLanguageNotice.h"
#include "settings/QVMainBundle.h"

#include <QNetworkAccessManager>

QVConfigurationManager &QVConfigurationManager::sharedManager()
{
    // Never destroyed: a host's statics, managers among them, may be destroyed after ours.
    static auto *const manager = new QVConfigurationManager;
    return *manager;
}

QVConfigurationManager::QVConfigurationManager()
{
    // Without a notice: nothing on screen had a text before, and its receivers may ask for this very object.
    chooseLanguage(QString());
    QVPictureCacheFolder::clearInBackground();
}

void QVConfigurationManager::setPreferredLanguage(const QString &language)
{
    chooseLanguage(language);
    Q_EMIT QVLanguageNotice::shared().languageChanged();
}

void QVConfigurationManager::chooseLanguage(const QString &language)
{
    m_preferredLanguage = language;
    const QString folder = qv_languageFolderName(language.isEmpty() ? qv_deviceLanguage() : language);
    const QString type = QStringLiteral("lproj");
    m_languageBundle = qv_bundle()->bundle(folder, type);
    const auto hostBundle = QVMainBundle::shared().hostBundle();
    m_hostLanguageBundle = hostBundle ? hostBundle->bundle(folder, type) : nullptr;
}

QString QVConfigurationManager::deviceId() const
{
    return QVDeviceIdentifier::getDeviceId();
}

void QVConfigurationManager::prepareDeviceId()
{
    QVDesktopStore::shared().prepare();
}
