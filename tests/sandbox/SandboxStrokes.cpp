#include "sandbox/SandboxStrokes.h"

#include "flow/QVRenderTrace.h"
#include "support/QVText.h"

#include <algorithm>
#include <cmath>

namespace SandboxStrokes {

namespace {

QString threeDigits(qint64 number)
{
    const QString digits = q("kqrsvj567opcd89ghiyz");
    return QString(digits[number / 8000]) + digits[number / 20 % 20] + digits[number % 20];
}

} // namespace

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

QString encoded(const SandboxPath &points, qint64 millisecondsBetween, double top)
{
    QString columns;
    QString rows;
    QString times;
    for (qsizetype i = 0; i < points.size(); ++i) {
        columns += threeDigits(static_cast<qint64>(std::max(points[i].x(), 0.0)));
        rows += threeDigits(static_cast<qint64>(std::max(points[i].y() + top, 0.0) * 230.0 / 400.0));
        times += threeDigits(i * millisecondsBetween);
    }
    return columns + rows + times;
}

QString encodedCells(const SandboxPath &points)
{
    // The client's own, since nobody but this service and it knows these cells.
    QVRenderTrace trace;
    trace.setFrame({0, 0, SandboxGeometry::pictureWidth, SandboxGeometry::pictureHeight});
    for (const QPointF point : points)
        trace.handlePanGesturePoint(point, 0.0);
    return trace.getRenderOutage_v({0, 0, SandboxGeometry::pictureWidth, SandboxGeometry::pictureHeight});
}

} // namespace SandboxStrokes
