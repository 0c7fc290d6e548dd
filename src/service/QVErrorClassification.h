#pragma once

#include "platform/QVError.h"

#include <optional>

class QVResponseModel;

// Turns whatever went wrong into an error that can be shown: its domain is the message, in the
// language in force.

/// The extra information that marks a refusal of the service itself.
[[nodiscard]] QVariantMap qv_customUserInfo();
[[nodiscard]] bool qv_isQVCustomError(const QVError &error);
/// The error for an answer that was no success, or that was no record at all.
[[nodiscard]] QVError qv_customErrorWithErrorResponse(const QVResponseModel *response);
/// The error to show where there is no answer; the outage switch may have ended with neither.
[[nodiscard]] QVError qv_errorWithoutAnswer(const std::optional<QVError> &error);
/// Chooses the message by the code; code and extra information stay as they are.
[[nodiscard]] QVError qv_parseError(const std::optional<QVError> &error);
