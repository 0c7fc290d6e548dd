#pragma once

#include "flow/QVRenderTrace.h"
#include "sandbox/SandboxGeometry.h"

/// The client's records of strokes.
namespace SandboxStrokes {

/// A stroke with 20 ms per point. The view is as wide as the picture, which begins at \a top.
[[nodiscard]] inline QVRenderTrace recorded(const SandboxPath &points, double top = 0.0)
{
    QVRenderTrace trace;
    trace.setFrame({0, 0, SandboxGeometry::pictureWidth, SandboxGeometry::pictureHeight + 2 * top});
    trace.setPanGestureStartTime(1000.0);
    for (qsizetype i = 0; i < points.size(); ++i)
        trace.handlePanGesturePoint(points[i] + QPointF(0, top), 1000.0 + double(i) * 0.02);
    return trace;
}

/// The cells that are sent to the outage service for a stroke in a view of the picture's size.
[[nodiscard]] inline QString cells(const SandboxPath &points)
{
    return recorded(points).getRenderOutage_v(
        {0, 0, SandboxGeometry::pictureWidth, SandboxGeometry::pictureHeight});
}

} // namespace SandboxStrokes
