#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QColor>

/// The colours that the views share. Text colours on the component's own background follow the setting for
/// contrast.
namespace QVColors {

/// Called by a view each time it is painted.
using Source = QColor (*)();

inline constexpr QColor picture(38, 38, 52);

// Alpha 0.7.
inline constexpr QColor badge(0, 0, 0, 179);
// Alpha 0.8.
inline constexpr QColor promptBar(255, 255, 255, 204);
inline constexpr QColor errorBar(238, 60, 64, 204);
inline constexpr QColor successBar(0, 213, 159, 204);

// Painted over what is clicked while the pointer is on it.
inline constexpr QColor hoverTint(255, 255, 255, 45);
/// Darker, so that the white pictures of the controls stay clear on any captcha.
inline constexpr QColor discHoverTint(0, 0, 0, 70);

/// The host's accent colour, or the product's own.
[[nodiscard]] QUARVO_CORE_EXPORT QColor accent();

// The colours below are light or dark, as QVSDKManager::setAppearance() says.
/// The background of a popup, with alpha 0.95.
[[nodiscard]] QUARVO_CORE_EXPORT QColor surface();
[[nodiscard]] QUARVO_CORE_EXPORT QColor strip();
[[nodiscard]] QUARVO_CORE_EXPORT QColor stripHover();
[[nodiscard]] QUARVO_CORE_EXPORT QColor field();
[[nodiscard]] QUARVO_CORE_EXPORT QColor fieldText();
[[nodiscard]] QUARVO_CORE_EXPORT QColor fieldBorder();

[[nodiscard]] QUARVO_CORE_EXPORT QColor white();
[[nodiscard]] QUARVO_CORE_EXPORT QColor caption();
[[nodiscard]] QUARVO_CORE_EXPORT QColor promptText();
[[nodiscard]] QUARVO_CORE_EXPORT QColor doneTitle();
[[nodiscard]] QUARVO_CORE_EXPORT QColor placeholder();
[[nodiscard]] QUARVO_CORE_EXPORT QColor supportText();

} // namespace QVColors
