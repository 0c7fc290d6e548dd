#pragma once

#include "secrets/QVSecureStore.h"

#include <chrono>
#include <functional>

/// Told rather than asked for, since a module reaches nothing inside the library that loads it.
using QVSecretClock = std::function<std::chrono::nanoseconds()>;

using QVSecretStoreEntry = QVSecureStore *(*)(std::chrono::milliseconds limit, QVSecretClock clock);

/// The one function of this room that others call, found by its name where the room is a module.
/// Gives a store that the caller owns.
extern "C" Q_DECL_EXPORT QVSecureStore *quarvoSecretStore(std::chrono::milliseconds limit,
                                                          QVSecretClock clock);
