#include "service/QVConfigResponseModel.h"

#include "settings/QVConfigurationManager.h"

namespace {

QString addressWithScheme(const QString &address)
{
    return address.startsWith(QLatin1String("http")) ? address : QLatin1String("https://") + address;
}

} // namespace

void QVConfigResponseModel::setType(QString value)
{
    m_type = std::move(value);
    if (m_type == QLatin1String("character"))
        m_isCharVerify = true;
}

void QVConfigResponseModel::setApi_server(const QString &value)
{
    if (!value.isEmpty())
        m_api_server = addressWithScheme(value);
}

void QVConfigResponseModel::setCdn_servers(QStringList value)
{
    m_cdn_servers = std::move(value);
    const QString first = m_cdn_servers.value(0);
    m_source_server = first.isNull() ? QVConfigurationManager::sharedManager().serviceAddresses().cdn()
                                     : addressWithScheme(first);
}
