#pragma once

#include <QString>

class QVVerifyResponseModel;

/// The text of the success bar for an answer.
[[nodiscard]] QString qv_passText(const QVVerifyResponseModel &answer);
