#include "net/QVPlainAddress.h"

#include <QHostAddress>
#include <QUrl>

bool qv_isOpenOnTheWay(const QString &address)
{
    const QUrl url(address);
    const QString host = url.host();
    return url.scheme() == QLatin1String("http") && host != QLatin1String("localhost") &&
           !QHostAddress(host).isLoopback();
}
