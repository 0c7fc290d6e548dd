#pragma once

#include <QString>

class QVVerifyResponseModel;

/// What the success bar says about an answer.
[[nodiscard]] QString qv_passText(const QVVerifyResponseModel &answer);
