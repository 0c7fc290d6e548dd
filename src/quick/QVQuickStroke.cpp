#include "quick/QVQuickStroke.h"

#include <QPainter>

void QVQuickStroke::moveTo(QPointF point)
{
    repaint(m_path.moveTo(point));
}

void QVQuickStroke::addLineTo(QPointF point)
{
    repaint(m_path.addLineTo(point));
}

void QVQuickStroke::removeAllPoints()
{
    repaint(m_path.removeAllPoints());
}

void QVQuickStroke::repaint(const QRect &touched)
{
    // Qt would take an empty rectangle for the whole item.
    if (!touched.isEmpty())
        update(touched);
}

void QVQuickStroke::paint(QPainter *painter)
{
    // Qt clips this to what is repainted, unless that is everything.
    const QRectF area = painter->hasClipping() ? painter->clipBoundingRect() : boundingRect();
    m_path.paint(*painter, area.toAlignedRect(), m_color);
}
