#pragma once

#include <QString>

/// The demo's own words; the component brings its texts with it.
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
