#pragma once

#include <QString>

/// The hosts that the demo can look like, to see that the component looks well in each.
enum class DemoLook {
    Light,
    Dark,
    /// Whose style sheet has rules for every button and label there is.
    Loud,
    RightToLeft
};

[[nodiscard]] QString demoStyleSheet(DemoLook look);
