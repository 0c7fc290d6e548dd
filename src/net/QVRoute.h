#pragma once

#include <QNetworkProxy>
#include <QNetworkRequest>
#include <QSslConfiguration>

/// How a request reaches its server: through which proxy, to which address, and as whom it must identify
/// itself. Requests of equal routes can share a connection.
struct QVRoute
{
    /// What the connection is made to: the server, or a proxy that is sent the whole address.
    QString host;
    quint16 port = 0;
    /// A proxy that passes bytes on unseen.
    QNetworkProxy tunnel;
    /// Credentials for a proxy that is sent the whole address.
    QByteArray proxyAuthorization;
    bool isToProxy = false;
    bool isEncrypted = false;
    QSslConfiguration tls;

    bool operator==(const QVRoute &) const = default;
};

/// Asks for the application's or the system's proxies, which may take time: not for the user-interface
/// thread.
[[nodiscard]] QVRoute qv_routeOf(const QNetworkRequest &request);
/// A GET as it is sent over a connection of that route.
[[nodiscard]] QByteArray qv_requestBytes(const QNetworkRequest &request, const QVRoute &route);
