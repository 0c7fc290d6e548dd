#include "service/QVErrorClassification.h"

#include "net/QVNetworkError.h"
#include "service/QVResponseModel.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"

namespace {

QString customErrorKey()
{
    return QStringLiteral("QVCustonErrorKey");
}

std::optional<QLatin1String> serviceMessageKey(qint64 code)
{
    switch (code) {
    case QVError::AccessDenied:
        return QVKey::accessDenied;
    case QVError::RefreshTooFast:
        return QVKey::refreshTooFast;
    case QVError::TooManyRefreshes:
        return QVKey::refreshMany;
    case QVError::TooManyAttempts:
        return QVKey::requestToMouch;
    case QVError::Expired:
        return QVKey::expired;
    default:
        return std::nullopt;
    }
}

std::optional<QLatin1String> platformMessageKey(qint64 code)
{
    switch (code) {
    case QVError::TimedOut:
        return QVKey::timedOut;
    case QVError::ConnectionLost:
    case QVError::NotConnected:
        // The message for being offline is the same as for a lost connection.
        return QVKey::connectionLost;
    default:
        return std::nullopt;
    }
}

QString systemErrorMessage()
{
    return qv_localizedStringForKey(QVKey::systemError)
        .replace(QLatin1String("{domain}"), qv_localizedStringForKey(QVKey::otherRequestError));
}

} // namespace

QVariantMap QVErrorClassification::customUserInfo()
{
    return {{customErrorKey(), 1}};
}

bool QVErrorClassification::isQVCustomError(const QVError &error)
{
    return error.userInfo().contains(customErrorKey());
}

QVError QVErrorClassification::customErrorWithErrorResponse(const QVResponseModel *response)
{
    const qint64 code = response ? response->code().toLongLong() : QVError::UnexpectedAnswer;
    return parseError(QVError(qv_localizedStringForKey(QVKey::otherRequestError), code, customUserInfo()));
}

QVError QVErrorClassification::parseError(const std::optional<QVError> &error)
{
    if (!error)
        return QVError(QStringLiteral("No Error!!!"));
    return QVError(message(*error).text(), error->code(), error->userInfo());
}

QVText QVErrorClassification::message(const QVError &error)
{
    const auto key =
        isQVCustomError(error) ? serviceMessageKey(error.code()) : platformMessageKey(error.code());
    return key ? QVText(*key) : QVText(systemErrorMessage);
}
