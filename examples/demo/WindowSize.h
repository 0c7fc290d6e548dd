#pragma once

#include <QSize>
#include <QString>

#include <optional>

inline constexpr int smallestSide = 240;
inline constexpr int largestSide = 3840;

/// Reads a size such as 400x300. Empty if \a text is not a size, or not one that the demo's window may have.
[[nodiscard]] std::optional<QSize> windowSizeFrom(const QString &text);
