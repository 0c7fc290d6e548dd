#pragma once

#include <QByteArray>

/// The address of the user's session bus, empty where there is none. Never one that would have to be
/// started: a new bus has no secrets.
[[nodiscard]] QByteArray qv_sessionBusAddress();
