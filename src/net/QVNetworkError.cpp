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
    // Used only if the host has loaded it already, since loading it talks to other processes.
    if (const QNetworkInformation *information = QNetworkInformation::instance())
        return information->reachability() == QNetworkInformation::Reachability::Disconnected;
    return std::ranges::none_of(QNetworkInterface::allInterfaces(), isUsable);
}

qint64 codeOfUnreachable(qint64 code)
{
    return isOffline() ? QVError::NotConnected : code;
}

qint64 codeOf(QNetworkReply::NetworkError error)
{
    switch (error) {
    case QNetworkReply::ConnectionRefusedError:
        return QVError::CannotConnect;
    case QNetworkReply::RemoteHostClosedError:
        return QVError::ConnectionLost;
    case QNetworkReply::HostNotFoundError:
        return codeOfUnreachable(QVError::HostNotFound);
    case QNetworkReply::TimeoutError:
    // A host's own manager reports its transfer time-out like this.
    case QNetworkReply::OperationCanceledError:
        return QVError::TimedOut;
    case QNetworkReply::SslHandshakeFailedError:
        return QVError::TlsFailed;
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
        return QVError::NotConnected;
    case QNetworkReply::UnknownNetworkError:
        return codeOfUnreachable(QVError::OtherFailure);
    default:
        return QVError::OtherFailure;
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
