#pragma once

#include <QString>

/// The texts of the demo itself. The component has its own texts.
enum class DemoText {
    Title,
    Subtitle,
    Name,
    Password,
    SignIn,
    Verified,
    Again,
    Embed,
    Click,
    Invisible,
    Language,
    ForceOutage,
    Events,
};

[[nodiscard]] QString demoText(DemoText text, const QString &languageTag);
