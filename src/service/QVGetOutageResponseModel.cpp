#include "service/QVGetOutageResponseModel.h"

#include "settings/QVConfigurationManager.h"

QString QVGetOutageResponseModel::imgUrlString() const
{
    const QString imageHost = QVConfigurationManager::sharedManager().serviceAddresses().imageHost();
    return imageHost + u'/' + m_imgid + QLatin1String(".jpg");
}
