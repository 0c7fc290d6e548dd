#pragma once

#include <QSize>
#include <QString>

#include <optional>

inline constexpr int smallestSide = 240;
inline constexpr int largestSide = 3840;

/// From WIDTHxHEIGHT; nothing where that is no size that a window of the demo may have.
[[nodiscard]] std::optional<QSize> windowSizeFrom(const QString &text);
