#pragma once

#include <QPointF>

#include <array>
#include <span>

/// The start of a stroke, its two sharpest corners in the order they were drawn, and its end.
///
/// \a points must not be empty. A missing corner is at (0, 0) and comes before all others, since the service
/// expects this for a straight stroke.
[[nodiscard]] std::array<QPointF, 4> qv_traceCorners(std::span<const QPointF> points);
