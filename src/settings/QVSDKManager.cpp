#include "settings/QVSDKManager.h"

#include "platform/QVMainThread.h"
#include "settings/QVConfigurationManager.h"

#include <algorithm>

namespace {

QVConfigurationManager &settings()
{
    qv_assertMainThread();
    return QVConfigurationManager::sharedManager();
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

void QVSDKManager::setOutageServer(const QString &address)
{
    settings().setOutage(address);
}

void QVSDKManager::setOutageOpen(bool open)
{
    settings().setIsOpenOutage(open);
}

void QVSDKManager::setServiceAddresses(const QVServiceAddresses &addresses)
{
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
    settings().setAttemptTimeout(std::max(timeout, std::chrono::milliseconds::zero()));
}

void QVSDKManager::setPopupPresentation(QVPopupPresentation presentation)
{
    settings().setPopupPresentation(presentation);
}
