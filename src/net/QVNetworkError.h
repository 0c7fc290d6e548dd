#pragma once

#include "platform/QVError.h"

#include <QNetworkReply>

#include <optional>

namespace QVNetworkError {

/// The code of a cancelled request. It is never reported to a host.
inline constexpr qint64 cancelled = -999;

/// The lowest HTTP status that means an error.
inline constexpr int firstErrorStatus = 400;

} // namespace QVNetworkError

/// A transport error without a message, which is chosen later by \a code.
[[nodiscard]] QVError qv_networkError(qint64 code);
/// The error of a request that was not answered; empty for NoError. Looks whether the machine is offline, and
/// must therefore be called on the user-interface thread.
[[nodiscard]] std::optional<QVError> qv_networkErrorOf(QNetworkReply::NetworkError error);
