#include "sandbox/SandboxStrokes.h"

#include <algorithm>

namespace SandboxStrokes {

SandboxPath followed(const SandboxPath &curve, SandboxRandom &random)
{
    const SandboxPath dense = SandboxGeometry::resampled(curve, 200);
    const auto cutFront = static_cast<qsizetype>(random.real(0.0, 8.0));
    const auto cutBack = static_cast<qsizetype>(random.real(0.0, 8.0));
    SandboxPath points = SandboxGeometry::resampled(dense.mid(cutFront, dense.size() - cutFront - cutBack),
                                                    14 + random.below(40));
    const QPointF displaced(random.normal(4.0), random.normal(4.0));
    const double stretched = random.real(0.93, 1.07);
    const QPointF centre(200.0, 115.0);
    QPointF tremor;
    for (QPointF &point : points) {
        tremor = tremor * 0.8 + QPointF(random.normal(3.0), random.normal(3.0));
        point = centre + (point - centre) * stretched + displaced + tremor;
        point = {std::clamp(point.x(), 0.0, 399.0), std::clamp(point.y(), 0.0, 229.0)};
    }
    return points;
}

SandboxPath scribble(SandboxRandom &random)
{
    SandboxPath corners;
    while (corners.size() < 6)
        corners.append({random.real(10.0, 390.0), random.real(10.0, 220.0)});
    return SandboxGeometry::resampled(SandboxGeometry::splineThrough(corners, 12), 40);
}

SandboxPath straight(QPointF from, QPointF to)
{
    return SandboxGeometry::resampled({from, to}, 30);
}

QVRenderTrace recorded(const SandboxPath &points, double top)
{
    QVRenderTrace trace;
    trace.setFrame({0, 0, SandboxGeometry::pictureWidth, SandboxGeometry::pictureHeight + 2 * top});
    trace.setPanGestureStartTime(1000.0);
    for (qsizetype i = 0; i < points.size(); ++i)
        trace.handlePanGesturePoint(points[i] + QPointF(0, top), 1000.0 + double(i) * 0.02);
    return trace;
}

QString cells(const QVRenderTrace &trace)
{
    return trace.getRenderOutage_v({0, 0, SandboxGeometry::pictureWidth, SandboxGeometry::pictureHeight});
}

} // namespace SandboxStrokes
