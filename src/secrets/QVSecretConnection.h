#pragma once

#include "secrets/QVGlibPointer.h"
#include "secrets/QVSecureItem.h"

class QVGlibLoop;
typedef struct _SecretService SecretService;

/// A connection to the user's session bus, and on it the Secret Service.
///
/// It is our own and not the one that a process shares by default: that one ends the process when the
/// bus goes away.
class QVSecretConnection
{
public:
    QVSecretConnection() = default;
    QVSecretConnection(const QVSecretConnection &) = delete;
    QVSecretConnection &operator=(const QVSecretConnection &) = delete;
    ~QVSecretConnection();

    [[nodiscard]] QVSecureStatus open(QVGlibLoop &loop);
    [[nodiscard]] SecretService *service() const { return m_service.get(); }

private:
    [[nodiscard]] QVSecureStatus connect(QVGlibLoop &loop, const QByteArray &address);
    [[nodiscard]] QVSecureStatus reachService(QVGlibLoop &loop);

    QVGlibPointer<GDBusConnection> m_connection;
    QVGlibPointer<SecretService> m_service;
};
