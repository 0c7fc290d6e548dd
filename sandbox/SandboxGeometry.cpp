#include "sandbox/SandboxGeometry.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace SandboxGeometry {

namespace {

QPointF mixed(QPointF a, QPointF b, double from, double to, double at)
{
    return a * ((to - at) / (to - from)) + b * ((at - from) / (to - from));
}

// A step of the centripetal knot sequence. Never zero, even if two points coincide.
double knotStep(QPointF a, QPointF b)
{
    return std::max(std::sqrt(distance(a, b)), 1e-3);
}

QPointF splinePoint(const std::array<QPointF, 4> &p, double fraction)
{
    const double t1 = knotStep(p[0], p[1]);
    const double t2 = t1 + knotStep(p[1], p[2]);
    const double t3 = t2 + knotStep(p[2], p[3]);
    const double t = t1 + fraction * (t2 - t1);
    const QPointF a = mixed(p[0], p[1], 0.0, t1, t);
    const QPointF b = mixed(p[1], p[2], t1, t2, t);
    const QPointF c = mixed(p[2], p[3], t2, t3, t);
    return mixed(mixed(a, b, 0.0, t2, t), mixed(b, c, t1, t3, t), t1, t2, t);
}

} // namespace

double distance(QPointF a, QPointF b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

double length(const SandboxPath &path)
{
    double sum = 0.0;
    for (qsizetype i = 1; i < path.size(); ++i)
        sum += distance(path[i - 1], path[i]);
    return sum;
}

SandboxPath resampled(const SandboxPath &path, qsizetype count)
{
    const double total = length(path);
    if (path.size() < 2 || count < 2 || total <= 0.0)
        return SandboxPath(count, path.isEmpty() ? QPointF() : path.first());
    SandboxPath result;
    result.reserve(count);
    qsizetype segment = 1;
    double before = 0.0;
    for (qsizetype i = 0; i < count; ++i) {
        const double wanted = total * static_cast<double>(i) / static_cast<double>(count - 1);
        double step = distance(path[segment - 1], path[segment]);
        while (before + step < wanted && segment + 1 < path.size()) {
            before += step;
            ++segment;
            step = distance(path[segment - 1], path[segment]);
        }
        const double fraction = step > 0.0 ? std::clamp((wanted - before) / step, 0.0, 1.0) : 0.0;
        result.append(path[segment - 1] + (path[segment] - path[segment - 1]) * fraction);
    }
    return result;
}

SandboxPath reversed(const SandboxPath &path)
{
    return SandboxPath(path.crbegin(), path.crend());
}

SandboxPath splineThrough(const SandboxPath &points, int stepsBetween)
{
    if (points.size() < 2)
        return points;
    // A mirrored point is added at each end, so that the line reaches the first and last point.
    SandboxPath p{points[0] * 2.0 - points[1]};
    p += points;
    p.append(points.last() * 2.0 - points[points.size() - 2]);
    SandboxPath result;
    for (qsizetype i = 1; i + 2 < p.size(); ++i) {
        for (int step = 0; step < stepsBetween; ++step)
            result.append(splinePoint({p[i - 1], p[i], p[i + 1], p[i + 2]},
                                      static_cast<double>(step) / static_cast<double>(stepsBetween)));
    }
    result.append(points.last());
    return result;
}

double triangleArea(QPointF a, QPointF b, QPointF c)
{
    return std::abs((b.x() - a.x()) * (c.y() - a.y()) - (c.x() - a.x()) * (b.y() - a.y())) / 2.0;
}

} // namespace SandboxGeometry
