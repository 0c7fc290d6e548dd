#include "secrets/QVSessionBus.h"

#include <QFile>
#include <QFileInfo>

#include <unistd.h>

QByteArray qv_sessionBusAddress()
{
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    if (!address.isEmpty())
        return address.contains("autolaunch:") || address.startsWith("disabled:") ? QByteArray() : address;
    const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
    const QFileInfo socket(QFile::decodeName(folder + "/bus"));
    if (folder.isEmpty() || !socket.exists() || socket.ownerId() != getuid())
        return {};
    return "unix:path=" + QFile::encodeName(socket.filePath()).toPercentEncoding("/", "~");
}
