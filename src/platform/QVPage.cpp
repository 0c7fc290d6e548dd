#include "platform/QVPage.h"

#include <QDesktopServices>
#include <QUrl>

bool qv_openPage(const QString &address)
{
    const QUrl url(address);
    const bool isWebPage = url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http");
    if (!url.isValid() || !isWebPage || url.host().isEmpty())
        return false;
    return QDesktopServices::openUrl(url);
}
