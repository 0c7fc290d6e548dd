#pragma once

/// \file
/// The choices for QVSDKManager::setPopupPresentation().

/// How much room the popup takes. Sizes are in logical pixels.
enum class QVPopupPresentation {
    /// A card in the middle of the host's window, with the rest dimmed. A window up to 480 wide is covered
    /// completely. The service judges traces best that were drawn on a surface as wide as a phone.
    Automatic,
    /// The host's whole window.
    WholeWindow,
    /// The whole screen that the host's window is on.
    WholeScreen,
};
