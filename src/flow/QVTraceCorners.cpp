#include "flow/QVTraceCorners.h"

#include "flow/QVTraceEncoding.h"

namespace {

struct Corner
{
    double area = 0.0;
    std::size_t index = 0;
    QPointF point;

    /// Changes to the point of [first, last) that is farthest from the line, if it is farther than the
    /// current one.
    void search(std::span<const QPointF> points, std::size_t first, std::size_t last, QPointF lineStart,
                QPointF lineEnd)
    {
        for (std::size_t i = first; i < last; ++i) {
            const double candidate = areaFromPointA(lineStart, lineEnd, points[i]);
            if (candidate > area)
                *this = Corner{candidate, i, points[i]};
        }
    }
};

} // namespace

std::array<QPointF, 4> qv_traceCorners(std::span<const QPointF> points)
{
    const std::size_t last = points.size() - 1;
    const QPointF start = points.front();
    const QPointF end = points.back();

    Corner farthest;
    farthest.search(points, 1, last, start, end);
    Corner second;
    second.search(points, 1, farthest.index, start, farthest.point);
    second.search(points, farthest.index + 1, last, farthest.point, end);

    if (second.index < farthest.index)
        return {start, second.point, farthest.point, end};
    return {start, farthest.point, second.point, end};
}
