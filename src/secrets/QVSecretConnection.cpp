#include "secrets/QVSecretConnection.h"

#include "secrets/QVGlibError.h"
#include "secrets/QVGlibLoop.h"
#include "secrets/QVPromptlessService.h"

#include <QFileInfo>

#include <libsecret/secret.h>
#include <unistd.h>

namespace {

// Looked up here, since GLib would start a bus where it finds none, and a new bus has no secrets.
QByteArray sessionBusAddress()
{
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    if (!address.isEmpty())
        return address.contains("autolaunch:") ? QByteArray() : address;
    const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
    const QFileInfo socket(QFile::decodeName(folder + "/bus"));
    if (folder.isEmpty() || !socket.exists() || socket.ownerId() != getuid())
        return {};
    const std::unique_ptr<char, QVGlibRelease<g_free>> escaped(
        g_dbus_address_escape_value(QFile::encodeName(socket.filePath()).constData()));
    return QByteArrayLiteral("unix:path=") + escaped.get();
}

} // namespace

QVSecretConnection::~QVSecretConnection()
{
    if (m_connection)
        g_dbus_connection_close(m_connection.get(), nullptr, nullptr, nullptr);
}

QVSecureStatus QVSecretConnection::open(QVGlibLoop &loop)
{
    const QByteArray address = sessionBusAddress();
    if (address.isEmpty())
        return QVSecureStatus::NotAvailable;
    const QVSecureStatus connected = connect(loop, address);
    return connected == QVSecureStatus::Success ? reachService(loop) : connected;
}

QVSecureStatus QVSecretConnection::connect(QVGlibLoop &loop, const QByteArray &address)
{
    const auto result = loop.run([&](GCancellable *cancellable, GAsyncReadyCallback callback, gpointer data) {
        const auto flags = GDBusConnectionFlags(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
        g_dbus_connection_new_for_address(address.constData(), flags, nullptr, cancellable, callback, data);
    });
    if (!result)
        return QVSecureStatus::NotAvailable;
    QVGlibError error;
    m_connection.reset(g_dbus_connection_new_for_address_finish(result.get(), error.place()));
    return m_connection ? QVSecureStatus::Success : QVSecureStatus::NotAvailable;
}

QVSecureStatus QVSecretConnection::reachService(QVGlibLoop &loop)
{
    const auto result = loop.run([&](GCancellable *cancellable, GAsyncReadyCallback callback, gpointer data) {
        g_async_initable_new_async(qv_promptlessServiceType(), G_PRIORITY_DEFAULT, cancellable, callback,
                                   data, "g-connection", m_connection.get(), nullptr);
    });
    if (!result)
        return QVSecureStatus::NotAvailable;
    QVGlibError error;
    const QVGlibPointer<GObject> source(g_async_result_get_source_object(result.get()));
    m_service.reset(reinterpret_cast<SecretService *>(
        g_async_initable_new_finish(G_ASYNC_INITABLE(source.get()), result.get(), error.place())));
    return error.status();
}
