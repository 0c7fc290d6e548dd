#pragma once

#include "platform/QuarvoCoreExport.h"

class QVError;

/// What went wrong, for logs: the name of the error's code. Never the message, which is in the user's
/// language.
[[nodiscard]] QUARVO_CORE_EXPORT const char *qv_errorName(const QVError &error);
