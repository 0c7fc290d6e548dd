#pragma once

#include <QPainterPath>

/// An arc around \a centre, clockwise on screen. Angles are in radians from the positive x axis. Full circles
/// of any radius have the same elements, so that one can be animated to another.
[[nodiscard]] QPainterPath qv_arcPath(QPointF centre, qreal radius, qreal startAngle, qreal endAngle);

/// The part of \a path between two fractions of its length. If anything is cut off, the result is open.
[[nodiscard]] QPainterPath qv_trimmedPath(const QPainterPath &path, qreal start, qreal end);

/// Interpolates each element of \a from to the same element of \a to. If the paths have different elements,
/// \a to replaces \a from half-way.
[[nodiscard]] QPainterPath qv_blendedPath(const QPainterPath &from, const QPainterPath &to, qreal progress);
