#include "flow/QVStrokePath.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double lineWidth = 5.0;
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

QRect boxOf(const QRectF &line)
{
    constexpr double antialiasingMargin = lineWidth / 2 + 1;
    return line.adjusted(-antialiasingMargin, -antialiasingMargin, antialiasingMargin, antialiasingMargin)
        .toAlignedRect();
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
    return boxOf(QRectF(m_points.at(m_points.size() - 2), m_points.constLast()).normalized());
}

QRect QVStrokePath::removeAllPoints()
{
    const QRect touched = m_points.size() > 1 ? boxOf(m_points.boundingRect()) : QRect();
    m_points.clear();
    return touched;
}

QPen QVStrokePath::pen(const QColor &color)
{
    return {color, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}
