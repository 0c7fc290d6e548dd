#pragma once

#include <QString>

/// Where a drawing captcha is shown. Signed and 64 bits wide, since it is stored and sent as such.
enum QVVerifyStyle : qint64 {
    QVVerifyStyleEmbed = 0,
    QVVerifyStylePopup = 1,
    QVVerifyStyleInvisible = 2,
};

/// The name under which the configuration request sends a style; empty for an unknown one.
[[nodiscard]] QString qv_typeStringForVerifyStyle(QVVerifyStyle style);
