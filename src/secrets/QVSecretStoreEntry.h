#pragma once

#include "secrets/QVSecureStore.h"

using QVSecretStoreEntry = QVSecureStore *(*)();

/// The one function by which the store over libsecret is reached, found by its name where it is a module.
/// Gives a store that the caller owns.
extern "C" Q_DECL_EXPORT QVSecureStore *quarvoSecretStore();
