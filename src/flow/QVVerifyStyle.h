#pragma once

#include <QString>

/// The kind of place in which a captcha is shown. Signed and 64 bits wide, since it is stored and sent as
/// such.
enum QVVerifyStyle : qint64 {
    QVVerifyStyleEmbed = 0,
    QVVerifyStylePopup = 1,
    QVVerifyStyleInvisible = 2,
};

/// The name of a style in the configuration request; empty if the style is unknown.
[[nodiscard]] QString qv_typeStringForVerifyStyle(QVVerifyStyle style);
