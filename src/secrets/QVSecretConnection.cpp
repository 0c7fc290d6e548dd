#include "secrets/QVSecretConnection.h"

#include "secrets/QVGlibLoop.h"
#include "secrets/QVPromptlessService.h"
#include "secrets/QVSessionBus.h"

#include <libsecret/secret.h>

QVSecretConnection::~QVSecretConnection()
{
    if (m_connection)
        g_dbus_connection_close(m_connection.get(), nullptr, nullptr, nullptr);
}

QVSecureStatus QVSecretConnection::open(QVGlibLoop &loop)
{
    const QByteArray address = qv_sessionBusAddress();
    if (address.isEmpty())
        return QVSecureStatus::NotAvailable;
    const QVSecureStatus connected = connect(loop, address);
    return connected == QVSecureStatus::Success ? reachService(loop) : connected;
}

QVSecureStatus QVSecretConnection::connect(QVGlibLoop &loop, const QByteArray &address)
{
    (void)loop.run(
        [&](auto... wait) {
            const auto flags = GDBusConnectionFlags(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                    G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
            g_dbus_connection_new_for_address(address.constData(), flags, nullptr, wait...);
        },
        [&](GAsyncResult *result, GError **error) {
            m_connection.reset(g_dbus_connection_new_for_address_finish(result, error));
        });
    // Why not is of no use to anybody.
    return m_connection ? QVSecureStatus::Success : QVSecureStatus::NotAvailable;
}

QVSecureStatus QVSecretConnection::reachService(QVGlibLoop &loop)
{
    return loop.run(
        [&](GCancellable *cancellable, GAsyncReadyCallback callback, gpointer data) {
            g_async_initable_new_async(qv_promptlessServiceType(), G_PRIORITY_DEFAULT, cancellable, callback,
                                       data, "g-connection", m_connection.get(), nullptr);
        },
        [&](GAsyncResult *result, GError **error) {
            const QVGlibPointer<GObject> source(g_async_result_get_source_object(result));
            m_service.reset(reinterpret_cast<SecretService *>(
                g_async_initable_new_finish(G_ASYNC_INITABLE(source.get()), result, error)));
        });
}
