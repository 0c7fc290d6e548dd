#pragma once

#include "platform/QVError.h"
#include "platform/QuarvoCoreExport.h"
#include "settings/QVText.h"

#include <optional>

class QVResponseModel;

/// Turns failures into errors that can be shown: the domain is the message in the current language.
class QUARVO_CORE_EXPORT QVErrorClassification
{
public:
    QVErrorClassification() = delete;

    /// The code of a wrong answer by the user, which is not a failure.
    static constexpr qint64 wrongAnswerCode = 104;

    /// The extra information of an error with which the service itself refused.
    [[nodiscard]] static QVariantMap customUserInfo();
    [[nodiscard]] static bool isQVCustomError(const QVError &error);
    /// The error for an unsuccessful answer, or for an answer that is not a record (null).
    [[nodiscard]] static QVError customErrorWithErrorResponse(const QVResponseModel *response);
    /// The message for a classified error, which follows the language.
    [[nodiscard]] static QVText message(const QVError &error);
    /// Chooses the message by the code; code and extra information stay as they are.
    [[nodiscard]] static QVError parseError(const std::optional<QVError> &error);
};
