#include "flow/QVStrokePath.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double lineWidth = 5.0;
// The cost of a path that crosses itself grows faster than its length.
constexpr qsizetype linesOfPart = 8;
// Outside any screen, but small enough to be converted to whole pixels.
constexpr double farthestPosition = 32000.0;

double drawable(double coordinate)
{
    return std::isnan(coordinate) ? 0.0 : std::clamp(coordinate, -farthestPosition, farthestPosition);
}

QPointF drawable(QPointF point)
{
    return {drawable(point.x()), drawable(point.y())};
}

QRectF withMargin(const QRectF &area)
{
    constexpr double antialiasingMargin = lineWidth / 2 + 1;
    return area.adjusted(-antialiasingMargin, -antialiasingMargin, antialiasingMargin, antialiasingMargin);
}

// QRectF::intersects() does not see a line that is horizontal or vertical.
bool touches(QPointF from, QPointF to, const QRectF &area)
{
    return std::max(from.x(), to.x()) > area.left() && std::min(from.x(), to.x()) < area.right() &&
           std::max(from.y(), to.y()) > area.top() && std::min(from.y(), to.y()) < area.bottom();
}

} // namespace

QRect QVStrokePath::moveTo(QPointF point)
{
    const QRect touched = removeAllPoints();
    m_points.append(drawable(point));
    return touched;
}

QRect QVStrokePath::addLineTo(QPointF point)
{
    m_points.append(drawable(point));
    if (m_points.size() < 2)
        return {};
    const QRectF line(m_points.at(m_points.size() - 2), m_points.constLast());
    return withMargin(line.normalized()).toAlignedRect();
}

QRect QVStrokePath::removeAllPoints()
{
    const QRect touched = m_points.size() > 1 ? withMargin(m_points.boundingRect()).toAlignedRect() : QRect();
    m_points.clear();
    return touched;
}

void QVStrokePath::paint(QPainter &painter, const QRect &area, const QColor &color) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    // With round caps and joins, parts that are painted one by one look like one line. They are the same
    // parts whatever the area is, so that the edges where a stroke crosses itself look the same, too.
    painter.setPen(QPen(color, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QRectF around = withMargin(area);
    for (qsizetype first = 0; first + 1 < m_points.size(); first += linesOfPart) {
        const qsizetype last = std::min(first + linesOfPart, m_points.size() - 1);
        qsizetype line = first;
        while (line < last && !touches(m_points[line], m_points[line + 1], around))
            ++line;
        if (line < last)
            painter.drawPolyline(&m_points[first], int(last - first) + 1);
    }
}
