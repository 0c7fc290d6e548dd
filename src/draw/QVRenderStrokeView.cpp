#include "draw/QVRenderStrokeView.h"

#include "settings/QVColors.h"
#include "views/QVAccessibleRole.h"

#include <QPainter>

QVRenderStrokeView::QVRenderStrokeView(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    qv_setAccessibleRole(this, QAccessible::NoRole);
}

void QVRenderStrokeView::moveTo(QPointF point)
{
    update(m_path.moveTo(point));
    m_canvas = QImage();
}

void QVRenderStrokeView::addLineTo(QPointF point)
{
    const QRect touched = m_path.addLineTo(point);
    const QPolygonF &points = renderBezierPath();
    if (points.size() < 2)
        return;
    if (hasCanvas())
        drawOnCanvas(&points[points.size() - 2], 2);
    else
        renewCanvas();
    update(touched);
}

void QVRenderStrokeView::removeAllPoints()
{
    update(m_path.removeAllPoints());
    m_canvas = QImage();
}

void QVRenderStrokeView::paintEvent(QPaintEvent * /*event*/)
{
    if (m_canvas.isNull())
        return;
    // Qt clips this to the region that is repainted.
    QPainter(this).drawImage(0, 0, m_canvas);
}

void QVRenderStrokeView::resizeEvent(QResizeEvent * /*event*/)
{
    if (renderBezierPath().size() > 1)
        renewCanvas();
}

bool QVRenderStrokeView::hasCanvas() const
{
    return !m_canvas.isNull() && m_canvas.devicePixelRatio() == devicePixelRatioF();
}

void QVRenderStrokeView::renewCanvas()
{
    const double ratio = devicePixelRatioF();
    m_canvas = QImage(size() * ratio, QImage::Format_ARGB32_Premultiplied);
    m_canvas.setDevicePixelRatio(ratio);
    m_canvas.fill(Qt::transparent);
    drawOnCanvas(renderBezierPath().constData(), static_cast<int>(renderBezierPath().size()));
}

void QVRenderStrokeView::drawOnCanvas(const QPointF *points, int count)
{
    // An empty view has no canvas.
    if (m_canvas.isNull())
        return;
    QPainter painter(&m_canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QVStrokePath::pen(QVColors::accent()));
    painter.drawPolyline(points, count);
}
