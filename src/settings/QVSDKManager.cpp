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

/// Null if the call is not allowed, which has been logged then.
QVConfigurationManager *settingsFor(const char *call)
{
    return qv_mayCall(call) ? &QVConfigurationManager::sharedManager() : nullptr;
}

/// Limits \a duration to a range that every timer and unit can represent.
std::chrono::milliseconds countable(std::chrono::milliseconds duration)
{
    constexpr std::chrono::milliseconds longest = std::chrono::days(1);
    return std::clamp(duration, std::chrono::milliseconds::zero(), longest);
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
    auto *const settings = settingsFor(Q_FUNC_INFO);
    if (!settings)
        return;
    settings->setVid(vid);
    settings->setScene(scene);
}

void QVSDKManager::setPreferredLanguage(const QString &language)
{
    if (auto *const settings = settingsFor(Q_FUNC_INFO))
        settings->setPreferredLanguage(language);
}

void QVSDKManager::setResourceBundle(const QString &path)
{
    auto *const settings = settingsFor(Q_FUNC_INFO);
    if (!settings)
        return;
    auto bundle = path.isEmpty() ? nullptr : QVBundle::open(path);
    if (!bundle && !path.isEmpty())
        qCWarning(settingsLog, "No resource bundle: %s is no folder", qUtf8Printable(path));
    QVMainBundle::shared().setHostBundle(std::move(bundle));
    settings->setPreferredLanguage(settings->preferredLanguage());
}

void QVSDKManager::setOutageServer(const QString &address)
{
    auto *const settings = settingsFor(Q_FUNC_INFO);
    if (!settings)
        return;
    warnOfPlain({address});
    settings->setOutage(address);
}

void QVSDKManager::setOutageOpen(bool open)
{
    if (auto *const settings = settingsFor(Q_FUNC_INFO))
        settings->setIsOpenOutage(open);
}

void QVSDKManager::setServiceAddresses(const QVServiceAddresses &addresses)
{
    auto *const settings = settingsFor(Q_FUNC_INFO);
    if (!settings)
        return;
    warnOfPlain({addresses.apiHost(), addresses.downloadHost(), addresses.imageHost(), addresses.cdn()});
    settings->setServiceAddresses(addresses);
}

void QVSDKManager::setPopupClosesOnOutsideClick(bool closes)
{
    if (auto *const settings = settingsFor(Q_FUNC_INFO))
        settings->setClosesOnOutsideClick(closes);
}

void QVSDKManager::setNetworkAccessManager(QNetworkAccessManager *manager)
{
    if (auto *const settings = settingsFor(Q_FUNC_INFO))
        settings->setNetworkAccessManager(manager);
}

void QVSDKManager::setAttemptTimeout(std::chrono::milliseconds timeout)
{
    if (auto *const settings = settingsFor(Q_FUNC_INFO))
        settings->setAttemptTimeout(countable(timeout));
}

void QVSDKManager::setTokenLifetime(std::chrono::milliseconds lifetime)
{
    if (auto *const settings = settingsFor(Q_FUNC_INFO))
        settings->setTokenLifetime(countable(lifetime));
}

void QVSDKManager::setPopupPresentation(QVPopupPresentation presentation)
{
    if (auto *const settings = settingsFor(Q_FUNC_INFO))
        settings->setPopupPresentation(presentation);
}

void QVSDKManager::setContrast(QVContrast contrast)
{
    if (auto *const settings = settingsFor(Q_FUNC_INFO))
        settings->setContrast(contrast);
}

void QVSDKManager::setAppearance(QVAppearance appearance)
{
    if (auto *const settings = settingsFor(Q_FUNC_INFO))
        settings->setAppearance(appearance);
}

void QVSDKManager::setAccentColor(const QColor &color)
{
    if (auto *const settings = settingsFor(Q_FUNC_INFO))
        settings->setAccentColor(color.isValid() ? QColor(color.rgb()) : color);
}

void QVSDKManager::setReducedMotion(bool reduced)
{
    if (auto *const settings = settingsFor(Q_FUNC_INFO))
        settings->setIsMotionReduced(reduced);
}
