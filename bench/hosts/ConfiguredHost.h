#pragma once

#include "hosts/HostWindow.h"

#include <Quarvo/Quarvo.h>

inline void configureHost(const QString &vid)
{
    QVSDKManager::setServiceAddresses(QVServiceAddresses::at(serviceAddress()));
    QVSDKManager::setQuarvoSDKVid(vid, QStringLiteral("bench"));
}
