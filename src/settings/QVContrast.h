#pragma once

/// \file
/// The choices for QVSDKManager::setContrast().

/// How far texts stand out from what they lie on.
enum class QVContrast {
    /// High where the platform's palette is one of high contrast, otherwise Standard.
    System,
    /// The product's own colours.
    Standard,
    /// Texts on light ground are darkened, and those on dark ground lightened, to a ratio of 4.5 : 1 (level
    /// AA of the Web Content Accessibility Guidelines 2.1). Each keeps its hue.
    High,
};
