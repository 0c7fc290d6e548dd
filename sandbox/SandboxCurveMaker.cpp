#include "sandbox/SandboxCurveMaker.h"

#include <QRectF>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

using namespace SandboxGeometry;

namespace {

// Curves stay inside this. The prompt bar covers the lowest 30 units; half a stroke width and a margin are
// added.
constexpr QRectF canvas(26.0, 24.0, 348.0, 160.0);
// Badge and advertisement lie top left, two buttons top right.
constexpr std::array occupied{QRectF(0.0, 0.0, 84.0, 42.0), QRectF(320.0, 0.0, 80.0, 48.0)};

constexpr double turn = 2.0 * std::numbers::pi;
constexpr int attempts = 3000;
constexpr int stepsBetween = 16;
constexpr double minimumLength = 330.0;
constexpr double maximumLength = 600.0;
// Two branches of the curve that are closer would be hard to follow with a finger.
constexpr double minimumGap = 44.0;
constexpr double minimumRadius = 20.0;
// A straight line from start to end must not be a right answer.
constexpr double minimumBend = 46.0;

bool isOnFreeGround(QPointF point)
{
    return canvas.contains(point) &&
           std::ranges::none_of(occupied, [point](const QRectF &area) { return area.contains(point); });
}

bool keepsClearOfItself(const SandboxPath &points, double spacing)
{
    const auto apart = static_cast<qsizetype>(std::ceil(minimumGap * turn / 4.0 / spacing));
    for (qsizetype i = 0; i < points.size(); ++i) {
        for (qsizetype j = i + apart; j < points.size(); ++j) {
            if (distance(points[i], points[j]) < minimumGap)
                return false;
        }
    }
    return true;
}

bool turnsGently(const SandboxPath &points, double spacing)
{
    const double sharpest = spacing / minimumRadius;
    for (qsizetype i = 1; i + 1 < points.size(); ++i) {
        const QPointF in = points[i] - points[i - 1];
        const QPointF out = points[i + 1] - points[i];
        const double cross = in.x() * out.y() - in.y() * out.x();
        if (std::abs(std::atan2(cross, QPointF::dotProduct(in, out))) > sharpest)
            return false;
    }
    return true;
}

double bendOf(const SandboxPath &points)
{
    const double chord = std::max(distance(points.first(), points.last()), 1.0);
    double bend = 0.0;
    for (const QPointF point : points)
        bend = std::max(bend, 2.0 * triangleArea(points.first(), points.last(), point) / chord);
    return bend;
}

} // namespace

SandboxCurveMaker::SandboxCurveMaker(quint64 seed)
    : m_random(seed)
{
}

SandboxPath SandboxCurveMaker::make(const Wish &wish)
{
    for (int i = 0; i < attempts; ++i) {
        const SandboxPath curve = attempt();
        if (isDrawable(curve) && (!wish || wish(curve)))
            return curve;
    }
    // So many refusals in a row do not happen by chance. There must be a picture in any case.
    return splineThrough({{50, 150}, {110, 60}, {190, 70}, {230, 160}, {310, 165}, {350, 90}}, stepsBetween);
}

SandboxPath SandboxCurveMaker::attempt()
{
    SandboxPath corners{
        {m_random.real(canvas.left(), canvas.right()), m_random.real(canvas.top(), canvas.bottom())}};
    const int count = 5 + m_random.below(2);
    double heading = m_random.real(0.0, turn);
    int tries = 60;
    while (corners.size() < count && --tries > 0) {
        const double turned = heading + m_random.real(-2.1, 2.1);
        const QPointF next =
            corners.last() + QPointF(std::cos(turned), std::sin(turned)) * m_random.real(60.0, 125.0);
        if (!isOnFreeGround(next))
            continue;
        corners.append(next);
        heading = turned;
    }
    return splineThrough(corners, stepsBetween);
}

bool SandboxCurveMaker::isDrawable(const SandboxPath &curve)
{
    const double total = length(curve);
    if (total < minimumLength || total > maximumLength)
        return false;
    constexpr qsizetype probes = 80;
    const SandboxPath points = resampled(curve, probes);
    const double spacing = total / static_cast<double>(probes - 1);
    return std::ranges::all_of(points, isOnFreeGround) && bendOf(points) >= minimumBend &&
           turnsGently(points, spacing) && keepsClearOfItself(points, spacing);
}
