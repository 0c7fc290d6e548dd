#pragma once

#include <QList>
#include <QPointF>

using SandboxPath = QList<QPointF>;

/// Plain geometry of open paths.
namespace SandboxGeometry {

/// The size of a picture in picture units, whatever its size in pixels.
inline constexpr double pictureWidth = 400.0;
inline constexpr double pictureHeight = 230.0;

[[nodiscard]] double distance(QPointF a, QPointF b);
[[nodiscard]] double length(const SandboxPath &path);
/// \a count points spaced evenly along the path, including both ends.
[[nodiscard]] SandboxPath resampled(const SandboxPath &path, qsizetype count);
[[nodiscard]] SandboxPath reversed(const SandboxPath &path);
/// A smooth line through all the points, without the loops that a uniform spline makes at uneven spacing.
[[nodiscard]] SandboxPath splineThrough(const SandboxPath &points, int stepsBetween);
[[nodiscard]] double triangleArea(QPointF a, QPointF b, QPointF c);

} // namespace SandboxGeometry
