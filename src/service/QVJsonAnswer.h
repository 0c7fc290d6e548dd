#pragma once

#include "platform/QVError.h"

#include <QJsonObject>

#include <optional>

/// A body read as JSON.
struct QVJsonAnswer
{
    /// Empty if the body is JSON but not an object, and if there is an error.
    std::optional<QJsonObject> object;
    std::optional<QVError> error;
};

[[nodiscard]] QVJsonAnswer qv_readJsonAnswer(const QByteArray &body);
