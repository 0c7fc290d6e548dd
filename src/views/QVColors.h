#pragma once

#include <QColor>

/// The colours that the views share. Texts on the component's own ground follow the wish for contrast.
namespace QVColors {

/// Where a view takes a colour from whenever it is painted.
using Source = QColor (*)();

inline constexpr QColor picture(38, 38, 52);

// Alpha 0.7.
inline constexpr QColor badge(0, 0, 0, 179);
// Alpha 0.8.
inline constexpr QColor promptBar(255, 255, 255, 204);
inline constexpr QColor errorBar(238, 60, 64, 204);
inline constexpr QColor successBar(0, 213, 159, 204);

/// The host's accent colour, or the product's own.
[[nodiscard]] QColor accent();

// These are light or dark, as the host wants it.
/// Where a popup lies: alpha 0.95.
[[nodiscard]] QColor surface();
[[nodiscard]] QColor strip();
[[nodiscard]] QColor stripHover();
[[nodiscard]] QColor field();
[[nodiscard]] QColor fieldText();
[[nodiscard]] QColor fieldBorder();

[[nodiscard]] QColor white();
[[nodiscard]] QColor caption();
[[nodiscard]] QColor promptText();
[[nodiscard]] QColor doneTitle();
[[nodiscard]] QColor placeholder();
[[nodiscard]] QColor supportText();

} // namespace QVColors
