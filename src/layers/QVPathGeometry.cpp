#include "layers/QVPathGeometry.h"

#include <QLineF>
#include <QRectF>
#include <QtMath>

#include <algorithm>
#include <array>

namespace {

// Chords per curve. The length of a quarter circle is exact to within 0.05 %.
constexpr int chords = 16;

QPointF mixed(QPointF from, QPointF to, qreal t)
{
    return from + (to - from) * t;
}

/// A straight or curved piece of a path as a cubic Bézier.
struct Segment
{
    std::array<QPointF, 4> points;
    bool curved = false;

    [[nodiscard]] QPointF at(qreal t) const
    {
        const QPointF middle = mixed(points[1], points[2], t);
        const QPointF left = mixed(mixed(points[0], points[1], t), middle, t);
        return mixed(left, mixed(middle, mixed(points[2], points[3], t), t), t);
    }

    [[nodiscard]] qreal chord(int index) const
    {
        return QLineF(at(qreal(index) / chords), at(qreal(index + 1) / chords)).length();
    }

    [[nodiscard]] qreal length() const
    {
        if (!curved)
            return QLineF(points[0], points[3]).length();
        qreal sum = 0;
        for (int i = 0; i < chords; ++i)
            sum += chord(i);
        return sum;
    }

    /// The parameter of the point at \a distance from the start, along the segment of the length \a whole.
    [[nodiscard]] qreal parameterAt(qreal distance, qreal whole) const
    {
        if (distance <= 0 || distance >= whole)
            return distance <= 0 ? 0 : 1;
        if (!curved)
            return distance / whole;
        qreal behind = 0;
        for (int i = 0; i < chords; ++i) {
            const qreal step = chord(i);
            if (behind + step >= distance)
                return (i + (distance - behind) / step) / chords;
            behind += step;
        }
        return 1;
    }

    /// The piece of the segment before \a t.
    [[nodiscard]] Segment head(qreal t) const
    {
        const QPointF first = mixed(points[0], points[1], t);
        const QPointF second = mixed(first, mixed(points[1], points[2], t), t);
        return {{points[0], first, second, at(t)}, curved};
    }

    [[nodiscard]] Segment reversed() const { return {{points[3], points[2], points[1], points[0]}, curved}; }

    [[nodiscard]] Segment between(qreal from, qreal to) const
    {
        const Segment tail = reversed().head(1 - from).reversed();
        return from >= 1 ? tail : tail.head((to - from) / (1 - from));
    }
};

/// Calls \a take with each drawn segment, in order, and whether a new subpath begins with it.
template<class Take>
void forEachSegment(const QPainterPath &path, Take take)
{
    bool begins = true;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPointF point = path.elementAt(i);
        if (path.elementAt(i).isMoveTo()) {
            begins = true;
            continue;
        }
        const QPointF before = path.elementAt(i - 1);
        if (path.elementAt(i).isCurveTo()) {
            take(Segment{{before, point, path.elementAt(i + 1), path.elementAt(i + 2)}, true}, begins);
            i += 2;
        } else {
            take(Segment{{before, mixed(before, point, 1.0 / 3), mixed(before, point, 2.0 / 3), point}},
                 begins);
        }
        begins = false;
    }
}

void append(QPainterPath &path, const Segment &segment, bool begins)
{
    if (begins)
        path.moveTo(segment.points[0]);
    if (segment.curved)
        path.cubicTo(segment.points[1], segment.points[2], segment.points[3]);
    else
        path.lineTo(segment.points[3]);
}

qreal lengthOf(const QPainterPath &path)
{
    qreal sum = 0;
    forEachSegment(path, [&](const Segment &segment, bool) { sum += segment.length(); });
    return sum;
}

} // namespace

QPainterPath qv_arcPath(QPointF centre, qreal radius, qreal startAngle, qreal endAngle)
{
    // Qt's angles are in degrees, counter-clockwise.
    const QRectF square(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    QPainterPath path;
    path.arcMoveTo(square, -qRadiansToDegrees(startAngle));
    path.arcTo(square, -qRadiansToDegrees(startAngle), -qRadiansToDegrees(endAngle - startAngle));
    return path;
}

QPainterPath qv_trimmedPath(const QPainterPath &path, qreal start, qreal end)
{
    if (start <= 0 && end >= 1)
        return path;
    QPainterPath result;
    const qreal whole = lengthOf(path);
    const qreal first = std::clamp(start, 0.0, 1.0) * whole;
    const qreal last = std::clamp(end, 0.0, 1.0) * whole;
    qreal behind = 0;
    forEachSegment(path, [&](const Segment &segment, bool begins) {
        const qreal length = segment.length();
        const qreal from = segment.parameterAt(first - behind, length);
        const qreal to = segment.parameterAt(last - behind, length);
        if (from < to)
            append(result, segment.between(from, to), begins || result.isEmpty());
        behind += length;
    });
    return result;
}

QPainterPath qv_blendedPath(const QPainterPath &from, const QPainterPath &to, qreal progress)
{
    if (from.elementCount() != to.elementCount())
        return to;
    QPainterPath result = from;
    for (int i = 0; i < result.elementCount(); ++i) {
        const QPointF point = mixed(from.elementAt(i), to.elementAt(i), progress);
        result.setElementPositionAt(i, point.x(), point.y());
    }
    return result;
}
