#pragma once

#include "platform/QVError.h"

#include <QNetworkReply>

#include <optional>

/// The codes of failures that are not the service's own. Their numbers are part of what hosts see.
namespace QVNetworkError {

inline constexpr qint64 other = -1;
inline constexpr qint64 cancelled = -999;
inline constexpr qint64 badAddress = -1000;
inline constexpr qint64 timedOut = -1001;
inline constexpr qint64 unsupportedAddress = -1002;
inline constexpr qint64 hostNotFound = -1003;
inline constexpr qint64 cannotConnect = -1004;
inline constexpr qint64 connectionLost = -1005;
inline constexpr qint64 notConnected = -1009;
inline constexpr qint64 tlsFailure = -1200;
inline constexpr qint64 notJson = 3840;

/// HTTP statuses from here on say that something went wrong.
inline constexpr int firstErrorStatus = 400;

} // namespace QVNetworkError

/// An error of the platform, whose message is still to be chosen by its code.
[[nodiscard]] QVError qv_networkError(qint64 code);
/// What kept a request from being answered; nothing where it was. Tells whether the machine is offline, for
/// which it is called on the user-interface thread.
[[nodiscard]] std::optional<QVError> qv_networkErrorOf(QNetworkReply::NetworkError error);
