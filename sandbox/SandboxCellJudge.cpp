#include "sandbox/SandboxCellJudge.h"

#include <algorithm>
#include <bit>
#include <functional>

using namespace SandboxGeometry;

namespace {

constexpr qsizetype samples = 80;
constexpr int gridSize = 4;
// The inaccuracy of a hand, in picture units. A point so close to a border may count for either cell.
constexpr double tolerance = 14.0;
// The part of the largest triangle from which on a corner may be taken for the farthest one.
constexpr double nearlyFarthest = 0.85;
// In square picture units. A smaller corner is lost in the shaking of a hand.
constexpr double clearCorner = 1500.0;
constexpr int clearCombinations = 300;

struct Run
{
    qsizetype first = 0;
    qsizetype last = 0;
    qsizetype top = 0;
};

// The sequences of points at which the area is close to its greatest value.
QList<Run> runsNearTop(const QList<double> &areas)
{
    const double least = nearlyFarthest * *std::ranges::max_element(areas);
    QList<Run> runs;
    for (qsizetype i = 0; i < areas.size(); ++i) {
        if (areas[i] < least || areas[i] <= 0.0)
            continue;
        if (runs.isEmpty() || runs.last().last + 1 < i)
            runs.append({i, i, i});
        runs.last().last = i;
        if (areas[i] > areas[runs.last().top])
            runs.last().top = i;
    }
    return runs;
}

int gridLine(double position, double size)
{
    return std::clamp(static_cast<int>(position / size * gridSize), 0, gridSize - 1);
}

int cellOf(QPointF point)
{
    return gridLine(point.y(), pictureHeight) * gridSize + gridLine(point.x(), pictureWidth);
}

int digitOf(QChar character)
{
    return static_cast<int>(QStringView(u"0123456789abcdef").indexOf(character));
}

} // namespace

SandboxCellJudge::SandboxCellJudge(const SandboxPath &curve)
    : m_points(resampled(curve, samples))
{
    QList<double> areas;
    for (const QPointF point : std::as_const(m_points))
        areas.append(triangleArea(m_points.first(), m_points.last(), point));
    for (const Run &run : runsNearTop(areas)) {
        // In a flat bow several points may be taken for the first corner, and the second corner depends on
        // that.
        for (const qsizetype corner : {run.first, run.top, run.last})
            addReadings(corner, cellsAround(run.first, run.last));
    }
}

void SandboxCellJudge::addReadings(qsizetype corner, Cells cornerCells)
{
    QList<double> areas;
    for (qsizetype i = 0; i < samples; ++i) {
        const QPointF end = i < corner ? m_points.first() : m_points.last();
        areas.append(triangleArea(end, m_points[corner], m_points[i]));
    }
    const Cells start = cellsAround(0, 0);
    const Cells end = cellsAround(samples - 1, samples - 1);
    for (const Run &run : runsNearTop(areas)) {
        const Cells other = cellsAround(run.first, run.last);
        const bool isBefore = run.top < corner;
        m_readings.append({start, isBefore ? other : cornerCells, isBefore ? cornerCells : other, end});
        m_smallestCorner =
            m_readings.size() == 1 ? areas[run.top] : std::min(m_smallestCorner, areas[run.top]);
    }
}

SandboxCellJudge::Cells SandboxCellJudge::cellsAround(qsizetype from, qsizetype to) const
{
    unsigned cells = 0;
    for (qsizetype i = from; i <= to; ++i) {
        for (const double dx : {-tolerance, 0.0, tolerance}) {
            for (const double dy : {-tolerance, 0.0, tolerance})
                cells |= 1U << cellOf(m_points[i] + QPointF(dx, dy));
        }
    }
    return static_cast<Cells>(cells);
}

bool SandboxCellJudge::accepts(const QString &digits) const
{
    if (digits.size() != 4)
        return false;
    const auto fits = [&digits](const Reading &reading, bool isBackwards) {
        for (int i = 0; i < 4; ++i) {
            const int digit = digitOf(digits[isBackwards ? 3 - i : i]);
            if (digit < 0 || !(reading[static_cast<std::size_t>(i)] >> digit & 1U))
                return false;
        }
        return true;
    };
    return std::ranges::any_of(
        m_readings, [&fits](const Reading &reading) { return fits(reading, false) || fits(reading, true); });
}

bool SandboxCellJudge::isClear() const
{
    int combinations = 0;
    for (const Reading &reading : m_readings) {
        int product = 1;
        for (const Cells cells : reading)
            product *= std::popcount(cells);
        combinations += product;
    }
    return !m_readings.isEmpty() && m_smallestCorner >= clearCorner && combinations <= clearCombinations;
}
