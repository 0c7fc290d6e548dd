#pragma once

#include <QString>

/// The looks of the demo, to see the component in different hosts.
enum class DemoLook {
    Light,
    Dark,
    /// A style sheet with rules for all buttons and labels.
    Loud,
    RightToLeft
};

[[nodiscard]] QString demoStyleSheet(DemoLook look);
