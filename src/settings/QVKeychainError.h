#pragma once

#include "platform/QVError.h"
#include "secrets/QVSecureItem.h"

#include <optional>

/// The error for a status; empty for Success. If there is a description in the user's language, the error's
/// extra information contains it as "localizedDescription".
[[nodiscard]] std::optional<QVError> qv_keychainError(QVSecureStatus status);

/// The key of the description in the strings table "QVKeychain".
[[nodiscard]] QString qv_keychainErrorKey(QVSecureStatus status);
