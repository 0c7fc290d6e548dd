#include "net/QVRoute.h"

#include "net/QVVerifyingTls.h"

#include <QLocale>

namespace {

constexpr int httpPort = 80;
constexpr int httpsPort = 443;

bool takesWholeAddresses(const QNetworkProxy &proxy)
{
    return proxy.type() == QNetworkProxy::HttpProxy || proxy.type() == QNetworkProxy::HttpCachingProxy;
}

QNetworkProxy proxyFor(const QUrl &address, bool isEncrypted)
{
    const QList<QNetworkProxy> proxies = QNetworkProxyFactory::proxyForQuery(QNetworkProxyQuery(address));
    for (const QNetworkProxy &proxy : proxies) {
        if (proxy.isTransparentProxy() || (!isEncrypted && takesWholeAddresses(proxy)))
            return proxy;
    }
    return QNetworkProxy::NoProxy;
}

QByteArray basicAuthorization(const QString &user, const QString &password)
{
    return user.isEmpty() ? QByteArray() : "Basic " + (user + u':' + password).toUtf8().toBase64();
}

QByteArray hostField(const QUrl &address)
{
    constexpr auto hostAndPort = QUrl::FullyEncoded | QUrl::RemoveUserInfo | QUrl::RemoveScheme |
                                 QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment;
    constexpr qsizetype slashes = 2;
    return address.toEncoded(hostAndPort).mid(slashes);
}

QByteArray targetOf(const QUrl &address, bool isToProxy)
{
    QUrl target = address;
    if (target.path().isEmpty())
        target.setPath(QStringLiteral("/"));
    constexpr QUrl::FormattingOptions whole =
        QUrl::FullyEncoded | QUrl::RemoveUserInfo | QUrl::RemoveFragment;
    return target.toEncoded(isToProxy ? whole : whole | QUrl::RemoveScheme | QUrl::RemoveAuthority);
}

QByteArray acceptedLanguages()
{
    const QByteArray language = QLocale::system().bcp47Name().toLatin1();
    return language.startsWith("en") ? language + ",*" : language + ",en,*";
}

} // namespace

QVRoute qv_routeOf(const QNetworkRequest &request)
{
    const QUrl address = request.url();
    QVRoute route;
    const bool isEncrypted = address.scheme() == QLatin1String("https");
    if (isEncrypted)
        route.tls = qv_verifyingTls();
    const QNetworkProxy proxy = proxyFor(address, isEncrypted);
    route.isToProxy = !isEncrypted && takesWholeAddresses(proxy);
    route.tunnel = route.isToProxy ? QNetworkProxy(QNetworkProxy::NoProxy) : proxy;
    route.host = route.isToProxy ? proxy.hostName() : address.host(QUrl::FullyEncoded);
    route.port = route.isToProxy ? proxy.port() : quint16(address.port(isEncrypted ? httpsPort : httpPort));
    if (route.isToProxy)
        route.proxyAuthorization = basicAuthorization(proxy.user(), proxy.password());
    return route;
}

QByteArray qv_requestBytes(const QNetworkRequest &request, const QVRoute &route)
{
    const QUrl address = request.url();
    QByteArray bytes = "GET " + targetOf(address, route.isToProxy) + " HTTP/1.1\r\n";
    const auto addField = [&bytes](const QByteArray &name, const QByteArray &value) {
        if (!value.isEmpty())
            bytes += name + ": " + value + "\r\n";
    };
    addField("Host", hostField(address));
    for (const QByteArray &name : request.rawHeaderList())
        addField(name, request.rawHeader(name));
    const QVariant cache = request.attribute(QNetworkRequest::CacheLoadControlAttribute);
    if (cache.isValid() && cache.toInt() == QNetworkRequest::AlwaysNetwork) {
        addField("Cache-Control", "no-cache");
        addField("Pragma", "no-cache");
    }
    addField("Accept-Encoding", "gzip");
    addField("Accept-Language", acceptedLanguages());
    addField("User-Agent", "Mozilla/5.0");
    addField("Authorization", basicAuthorization(address.userName(), address.password()));
    addField("Proxy-Authorization", route.proxyAuthorization);
    return bytes + "\r\n";
}
