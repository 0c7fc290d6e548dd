#include "settings/QVSDKManager.h"

#include "net/QVPlainAddress.h"
#include "platform/QVMainThread.h"
#include "settings/QVBundle.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVMainBundle.h"

#include <QLoggingCategory>

#include <algorithm>

namespace {

Q_LOGGING_CATEGORY(settingsLog, "quarvo.settings", QtInfoMsg)

QVConfigurationManager &settings()
{
    qv_assertMainThread();
    return QVConfigurationManager::sharedManager();
}

void warnOfPlain(const QStringList &addresses)
{
    if (std::ranges::any_of(addresses, qv_isOpenOnTheWay))
        qCWarning(settingsLog,
                  "A server of the verification is given without encryption: what is sent to it can be "
                  "read and changed on the way");
}

} // namespace

void QVSDKManager::setQuarvoSDKVid(const QString &vid, const QString &scene)
{
    settings().setVid(vid);
    settings().setScene(scene);
}

void QVSDKManager::setPreferredLanguage(const QString &language)
{
    settings().setPreferredLanguage(language);
}

void QVSDKManager::setResourceBundle(const QString &path)
{
    auto bundle = path.isNull() ? nullptr : QVBundle::open(path);
    if (!bundle && !path.isNull())
        qCWarning(settingsLog, "No resource bundle: %s is no folder", qUtf8Printable(path));
    QVMainBundle::shared().setHostBundle(std::move(bundle));
    settings().setPreferredLanguage(settings().preferredLanguage());
}

void QVSDKManager::setOutageServer(const QString &address)
{
    warnOfPlain({address});
    settings().setOutage(address);
}

void QVSDKManager::setOutageOpen(bool open)
{
    settings().setIsOpenOutage(open);
}

void QVSDKManager::setServiceAddresses(const QVServiceAddresses &addresses)
{
    warnOfPlain({addresses.apiHost(), addresses.downloadHost(), addresses.imageHost(), addresses.cdn()});
    settings().setServiceAddresses(addresses);
}

void QVSDKManager::setPopupClosesOnOutsideClick(bool closes)
{
    settings().setClosesOnOutsideClick(closes);
}

void QVSDKManager::setNetworkAccessManager(QNetworkAccessManager *manager)
{
    settings().setNetworkAccessManager(manager);
}

void QVSDKManager::setAttemptTimeout(std::chrono::milliseconds timeout)
{
    // No longer than what every part of the way can count.
    constexpr std::chrono::milliseconds longest = std::chrono::days(1);
    settings().setAttemptTimeout(std::clamp(timeout, std::chrono::milliseconds::zero(), longest));
}

void QVSDKManager::setPopupPresentation(QVPopupPresentation presentation)
{
    settings().setPopupPresentation(presentation);
}

void QVSDKManager::setContrast(QVContrast contrast)
{
    settings().setContrast(contrast);
}

void QVSDKManager::setAppearance(QVAppearance appearance)
{
    settings().setAppearance(appearance);
}

void QVSDKManager::setAccentColor(const QColor &color)
{
    settings().setAccentColor(color.isValid() ? QColor(color.rgb()) : color);
}

void QVSDKManager::setReducedMotion(bool reduced)
{
    settings().setIsMotionReduced(reduced);
}
