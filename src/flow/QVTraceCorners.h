#pragma once

#include <QPointF>

#include <array>
#include <span>

/// The start of a stroke, its two sharpest corners in the order they were drawn, and its end.
///
/// \a points holds at least one point. A corner that is not there counts as lying at (0, 0) before
/// all others: the service expects a straight stroke to be told so.
[[nodiscard]] std::array<QPointF, 4> qv_traceCorners(std::span<const QPointF> points);
