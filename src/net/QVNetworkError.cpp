#include "net/QVNetworkError.h"

#include <QNetworkInformation>
#include <QNetworkInterface>

#include <algorithm>

namespace {

bool isUsable(const QNetworkInterface &interface)
{
    constexpr auto needed = QNetworkInterface::IsUp | QNetworkInterface::IsRunning;
    return (interface.flags() & needed) == needed && !(interface.flags() & QNetworkInterface::IsLoopBack);
}

bool isOffline()
{
    // Asked only when a host has already loaded it: loading it talks to other processes.
    if (const QNetworkInformation *information = QNetworkInformation::instance())
        return information->reachability() == QNetworkInformation::Reachability::Disconnected;
    return std::ranges::none_of(QNetworkInterface::allInterfaces(), isUsable);
}

qint64 codeOfUnreachable(qint64 code)
{
    return isOffline() ? QVNetworkError::notConnected : code;
}

qint64 codeOf(QNetworkReply::NetworkError error)
{
    switch (error) {
    case QNetworkReply::ConnectionRefusedError:
        return QVNetworkError::cannotConnect;
    case QNetworkReply::RemoteHostClosedError:
        return QVNetworkError::connectionLost;
    case QNetworkReply::HostNotFoundError:
        return codeOfUnreachable(QVNetworkError::hostNotFound);
    case QNetworkReply::TimeoutError:
    // The time-out of a host's own manager.
    case QNetworkReply::OperationCanceledError:
        return QVNetworkError::timedOut;
    case QNetworkReply::SslHandshakeFailedError:
        return QVNetworkError::tlsFailure;
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
        return QVNetworkError::notConnected;
    case QNetworkReply::UnknownNetworkError:
        return codeOfUnreachable(QVNetworkError::other);
    default:
        return QVNetworkError::other;
    }
}

} // namespace

QVError qv_networkError(qint64 code)
{
    return QVError(QString(), code);
}

std::optional<QVError> qv_networkErrorOf(QNetworkReply::NetworkError error)
{
    if (error == QNetworkReply::NoError)
        return std::nullopt;
    return qv_networkError(codeOf(error));
}
