#include "flow/QVIdentity.h"

#include "settings/QVConfigurationManager.h"

QString QVIdentity::vid() const
{
    return ownVid.isNull() ? QVConfigurationManager::sharedManager().vid() : ownVid;
}

QString QVIdentity::scene() const
{
    return ownScene.isNull() ? QVConfigurationManager::sharedManager().scene() : ownScene;
}
