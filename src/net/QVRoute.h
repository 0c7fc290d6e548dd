#pragma once

#include <QNetworkProxy>
#include <QNetworkRequest>
#include <QSslConfiguration>

#include <optional>

/// How a request reaches its server: the address, the proxy and its credentials, and the TLS configuration.
/// Requests with equal routes can share a connection.
struct QVRoute
{
    /// The host to connect to: the server, or a proxy that takes whole addresses.
    QString host;
    quint16 port = 0;
    /// A proxy that passes all bytes on unchanged.
    QNetworkProxy tunnel;
    /// The credentials for a proxy that takes whole addresses.
    QByteArray proxyAuthorization;
    bool isToProxy = false;
    /// Absent for http. Even an empty one would make Qt load its TLS plugin.
    std::optional<QSslConfiguration> tls;

    bool operator==(const QVRoute &) const = default;
};

/// Looks up the application's or the system's proxies. That may block: not for the user-interface thread.
[[nodiscard]] QVRoute qv_routeOf(const QNetworkRequest &request);
/// The bytes of a GET request, as they are sent over a connection for \a route.
[[nodiscard]] QByteArray qv_requestBytes(const QNetworkRequest &request, const QVRoute &route);
