#pragma once

#include "platform/QVError.h"
#include "secrets/QVSecureItem.h"

#include <optional>

/// The error for a status, with a description in the user's language under "localizedDescription"
/// where one is at hand. Success gives none.
[[nodiscard]] std::optional<QVError> qv_keychainError(QVSecureStatus status);

/// The key of the description in the strings table "QVKeychain".
[[nodiscard]] QString qv_keychainErrorKey(QVSecureStatus status);
