#pragma once

/// \file
/// The choices for QVSDKManager::setContrast().

/// The contrast of texts with their background.
enum class QVContrast {
    /// High if the platform's palette has high contrast, otherwise Standard.
    System,
    /// The product's own colours.
    Standard,
    /// Texts on light ground are darkened, and those on dark ground lightened, to a ratio of 4.5 : 1 (level
    /// AA of the Web Content Accessibility Guidelines 2.1). Each keeps its hue.
    High,
};
