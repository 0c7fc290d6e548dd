#include "draw/QVRenderStrokeView.h"

#include "settings/QVColors.h"
#include "views/QVAccessibleRole.h"

#include <QPainter>

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

/// The pixels that a line covers, including antialiasing.
QRect boxOf(const QRectF &line)
{
    constexpr double margin = lineWidth / 2 + 1;
    return line.adjusted(-margin, -margin, margin, margin).toAlignedRect();
}

} // namespace

QVRenderStrokeView::QVRenderStrokeView(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    qv_setAccessibleRole(this, QAccessible::NoRole);
}

void QVRenderStrokeView::moveTo(QPointF point)
{
    removeAllPoints();
    m_renderBezierPath.append(drawable(point));
}

void QVRenderStrokeView::addLineTo(QPointF point)
{
    m_renderBezierPath.append(drawable(point));
    if (m_renderBezierPath.size() < 2)
        return;
    const QPointF *line = m_renderBezierPath.constData() + m_renderBezierPath.size() - 2;
    if (hasCanvas())
        drawOnCanvas(line, 2);
    else
        renewCanvas();
    update(boxOf(QRectF(line[0], line[1]).normalized()));
}

void QVRenderStrokeView::removeAllPoints()
{
    if (m_renderBezierPath.size() > 1)
        update(boxOf(m_renderBezierPath.boundingRect()));
    m_renderBezierPath.clear();
    m_canvas = QPixmap();
}

void QVRenderStrokeView::paintEvent(QPaintEvent * /*event*/)
{
    if (m_canvas.isNull())
        return;
    // Qt clips this to the region that is repainted.
    QPainter(this).drawPixmap(0, 0, m_canvas);
}

void QVRenderStrokeView::resizeEvent(QResizeEvent * /*event*/)
{
    if (m_renderBezierPath.size() > 1)
        renewCanvas();
}

bool QVRenderStrokeView::hasCanvas() const
{
    return !m_canvas.isNull() && m_canvas.devicePixelRatio() == devicePixelRatioF();
}

void QVRenderStrokeView::renewCanvas()
{
    const double ratio = devicePixelRatioF();
    m_canvas = QPixmap(size() * ratio);
    m_canvas.setDevicePixelRatio(ratio);
    m_canvas.fill(Qt::transparent);
    drawOnCanvas(m_renderBezierPath.constData(), static_cast<int>(m_renderBezierPath.size()));
}

void QVRenderStrokeView::drawOnCanvas(const QPointF *points, int count)
{
    // An empty view has no canvas.
    if (m_canvas.isNull())
        return;
    QPainter painter(&m_canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    // With round caps and joins, lines that are drawn one by one look like one line.
    painter.setPen(QPen(QVColors::accent(), lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(points, count);
}
