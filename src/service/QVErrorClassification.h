#pragma once

#include "platform/QVError.h"
#include "platform/QuarvoCoreExport.h"
#include "settings/QVText.h"

#include <optional>

class QVResponseModel;

/// Turns whatever went wrong into an error that can be shown: its domain is the message, in the
/// language in force.
class QUARVO_CORE_EXPORT QVErrorClassification
{
public:
    QVErrorClassification() = delete;

    /// The service's judgement that an answer was wrong, which is no failure.
    static constexpr qint64 wrongAnswerCode = 104;

    /// The extra information that marks a refusal of the service itself.
    [[nodiscard]] static QVariantMap customUserInfo();
    [[nodiscard]] static bool isQVCustomError(const QVError &error);
    /// The error for an answer that was no success, or that was no record at all.
    [[nodiscard]] static QVError customErrorWithErrorResponse(const QVResponseModel *response);
    /// The message for a classified error, in whatever language is in force.
    [[nodiscard]] static QVText message(const QVError &error);
    /// Chooses the message by the code; code and extra information stay as they are.
    [[nodiscard]] static QVError parseError(const std::optional<QVError> &error);
};
