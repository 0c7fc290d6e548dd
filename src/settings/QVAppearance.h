#pragma once

/// \file
/// The choices for QVSDKManager::setAppearance().

/// Whether the component's own surfaces are light or dark.
enum class QVAppearance {
    /// The product's own, light look.
    Light,
    /// Dark surfaces with light text.
    Dark,
    /// As light or dark as the application's palette.
    System,
};
