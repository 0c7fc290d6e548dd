#pragma once

#include <QByteArray>

/// The address of the user's session bus; empty if there is none. Never an address that would start a new
/// bus, since a new bus has no secrets.
[[nodiscard]] QByteArray qv_sessionBusAddress();
