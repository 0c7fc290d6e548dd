#pragma once

#include <QColor>

/// The colours that the views share. Texts on the component's own ground follow the wish for contrast.
namespace QVColors {

/// Where a view takes a colour from whenever it is painted.
using Source = QColor (*)();

inline constexpr QColor accent(65, 141, 251);
inline constexpr QColor lightGray(170, 170, 170);
inline constexpr QColor picture(38, 38, 52);
inline constexpr QColor strip(244, 244, 244);
inline constexpr QColor stripHover(0, 0, 0, 12);

// Alpha 0.7.
inline constexpr QColor badge(0, 0, 0, 179);
// Alpha 0.8.
inline constexpr QColor promptBar(255, 255, 255, 204);
inline constexpr QColor errorBar(238, 60, 64, 204);
inline constexpr QColor successBar(0, 213, 159, 204);
// Alpha 0.95.
inline constexpr QColor surface(255, 255, 255, 242);

[[nodiscard]] QColor white();
[[nodiscard]] QColor caption();
[[nodiscard]] QColor promptText();
[[nodiscard]] QColor doneTitle();
[[nodiscard]] QColor placeholder();
[[nodiscard]] QColor supportText();

} // namespace QVColors
