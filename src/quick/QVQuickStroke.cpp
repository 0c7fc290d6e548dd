#include "quick/QVQuickStroke.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double strokeWidth = 5.0;
// Beyond any screen, yet safe to turn into whole pixels.
constexpr double farthestPosition = 32000.0;

double drawable(double coordinate)
{
    return std::isnan(coordinate) ? 0.0 : std::clamp(coordinate, -farthestPosition, farthestPosition);
}

/// The pixels that a line covers, soft edges included.
QRect boxOf(const QRectF &line)
{
    constexpr double margin = strokeWidth / 2 + 1;
    return line.adjusted(-margin, -margin, margin, margin).toAlignedRect();
}

} // namespace

QVQuickStroke::QVQuickStroke(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void QVQuickStroke::moveTo(QPointF point)
{
    removeAllPoints();
    m_points.append({drawable(point.x()), drawable(point.y())});
}

void QVQuickStroke::addLineTo(QPointF point)
{
    m_points.append({drawable(point.x()), drawable(point.y())});
    if (m_points.size() > 1)
        update(boxOf(QRectF(m_points.at(m_points.size() - 2), m_points.constLast()).normalized()));
}

void QVQuickStroke::removeAllPoints()
{
    if (m_points.size() > 1)
        update(boxOf(m_points.boundingRect()));
    m_points.clear();
}

void QVQuickStroke::paint(QPainter *painter)
{
    // Qt clips this to what is repainted.
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(m_color, strokeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (m_points.size() > 1)
        painter->drawPolyline(m_points);
}
