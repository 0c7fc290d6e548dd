#pragma once

/// \file
/// The choices for QVSDKManager::setPopupPresentation().

/// How much room the popup takes.
enum class QVPopupPresentation {
    /// A card in the middle of the host's window, the rest dimmed; a window up to 480 wide is covered
    /// whole. A trace drawn on something as wide as a phone is what the service knows best.
    Automatic,
    /// The host's whole window.
    WholeWindow,
    /// The whole screen that the host's window is on.
    WholeScreen,
};
