#include "sandbox/SandboxTraceJudge.h"

#include <algorithm>
#include <cmath>

using namespace SandboxGeometry;

namespace {

constexpr qsizetype samples = 64;
// The weight of the greatest distance. One slip counts, but does not spoil a good stroke.
constexpr double weightOfGreatest = 0.25;
// With this, the pass line of 60 is at a deviation of 24 units. Measured with a thousand curves: 99 % of
// careless strokes deviate by less than 23, and half of them by less than 12. The best wrong answers are
// straight lines from start to end, of which 1 % deviate by less than 25. Scribbles and strokes for another
// curve deviate by much more.
constexpr double pointsLostPerUnit = 40.0 / 24.0;

double meanHeight(const SandboxPath &path)
{
    double sum = 0.0;
    for (const QPointF point : path)
        sum += point.y();
    return sum / static_cast<double>(path.size());
}

double deviationBetween(const SandboxPath &curve, const SandboxPath &stroke)
{
    const QPointF offset(0.0, meanHeight(curve) - meanHeight(stroke));
    double sum = 0.0;
    double greatest = 0.0;
    for (qsizetype i = 0; i < samples; ++i) {
        const double gap = distance(curve[i], stroke[i] + offset);
        sum += gap;
        greatest = std::max(greatest, gap);
    }
    return sum / static_cast<double>(samples) + weightOfGreatest * greatest;
}

} // namespace

SandboxTraceJudge::SandboxTraceJudge(const SandboxPath &curve)
    : m_curve(resampled(curve, samples))
    , m_reversed(reversed(m_curve))
{
}

int SandboxTraceJudge::score(const SandboxPath &stroke) const
{
    const double points = 100.0 - pointsLostPerUnit * deviation(stroke);
    return static_cast<int>(std::lround(std::clamp(points, 0.0, 100.0)));
}

double SandboxTraceJudge::deviation(const SandboxPath &stroke) const
{
    const SandboxPath even = resampled(stroke, samples);
    return std::min(deviationBetween(m_curve, even), deviationBetween(m_reversed, even));
}
