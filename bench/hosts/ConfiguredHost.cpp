#include "hosts/ConfiguredHost.h"

#include "hosts/HostWindow.h"

#include <Quarvo/Quarvo.h>

void configureHost(const QString &vid)
{
    const QJsonObject given = hostAddresses();
    QVServiceAddresses addresses;
    addresses.setApiHost(given.value(QStringLiteral("apiHost")).toString());
    addresses.setDownloadHost(given.value(QStringLiteral("downloadHost")).toString());
    addresses.setImageHost(given.value(QStringLiteral("imageHost")).toString());
    addresses.setCdn(given.value(QStringLiteral("cdn")).toString());
    QVSDKManager::setServiceAddresses(addresses);
    QVSDKManager::setQuarvoSDKVid(vid, QStringLiteral("bench"));
}
