#include "secrets/QVGlibError.h"

#include <libsecret/secret.h>

namespace {

QVSecureStatus statusOfSecretError(int code)
{
    switch (code) {
    case SECRET_ERROR_IS_LOCKED:
        return QVSecureStatus::InteractionNotAllowed;
    case SECRET_ERROR_NO_SUCH_OBJECT:
        return QVSecureStatus::ItemNotFound;
    case SECRET_ERROR_ALREADY_EXISTS:
        return QVSecureStatus::DuplicateItem;
    default:
        return QVSecureStatus::NotAvailable;
    }
}

QVSecureStatus statusOfBusError(int code)
{
    switch (code) {
    case G_DBUS_ERROR_ACCESS_DENIED:
    case G_DBUS_ERROR_AUTH_FAILED:
        return QVSecureStatus::AuthFailed;
    case G_DBUS_ERROR_NO_MEMORY:
    case G_DBUS_ERROR_LIMITS_EXCEEDED:
        return QVSecureStatus::Allocate;
    case G_DBUS_ERROR_INVALID_ARGS:
        return QVSecureStatus::Param;
    case G_DBUS_ERROR_UNKNOWN_METHOD:
    case G_DBUS_ERROR_NOT_SUPPORTED:
        return QVSecureStatus::Unimplemented;
    default:
        return QVSecureStatus::NotAvailable;
    }
}

} // namespace

QVSecureStatus QVGlibError::status() const
{
    if (!m_error)
        return QVSecureStatus::Success;
    if (m_error->domain == SECRET_ERROR)
        return statusOfSecretError(m_error->code);
    if (m_error->domain == G_DBUS_ERROR)
        return statusOfBusError(m_error->code);
    return QVSecureStatus::NotAvailable;
}
