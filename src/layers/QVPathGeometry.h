#pragma once

#include <QPainterPath>

/// An arc around \a centre, clockwise on screen, angles in radians from the positive x axis. Full
/// circles of any radius have the same elements, so that one can grow into another.
[[nodiscard]] QPainterPath qv_arcPath(QPointF centre, qreal radius, qreal startAngle, qreal endAngle);

/// The part of \a path between two fractions of its length. A path that is cut is open.
[[nodiscard]] QPainterPath qv_trimmedPath(const QPainterPath &path, qreal start, qreal end);

/// Each element of \a from on its way to the same element of \a to; paths that differ in their
/// elements change half-way instead.
[[nodiscard]] QPainterPath qv_blendedPath(const QPainterPath &from, const QPainterPath &to, qreal progress);
