#include "views/QVFocusRing.h"

#include <QPainter>
#include <QWidget>

void qv_paintFocusRing(QPainter &painter, const QWidget &widget, const QColor &color)
{
    if (!widget.hasFocus() || !widget.window()->testAttribute(Qt::WA_KeyboardFocusChange))
        return;
    constexpr qreal width = 2;
    constexpr qreal radius = 3;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    const QRectF ring = QRectF(widget.rect()).marginsRemoved(QMarginsF(width, width, width, width));
    painter.drawRoundedRect(ring, radius, radius);
}
