#pragma once

#include "platform/QVError.h"

#include <QNetworkReply>

#include <optional>

namespace QVNetworkError {

/// The code of a request that was given up, which no host sees.
inline constexpr qint64 cancelled = -999;

/// HTTP statuses from here on say that something went wrong.
inline constexpr int firstErrorStatus = 400;

} // namespace QVNetworkError

/// An error of the platform, whose message is still to be chosen by its code.
[[nodiscard]] QVError qv_networkError(qint64 code);
/// What kept a request from being answered; nothing where it was. Tells whether the machine is offline, for
/// which it is called on the user-interface thread.
[[nodiscard]] std::optional<QVError> qv_networkErrorOf(QNetworkReply::NetworkError error);
