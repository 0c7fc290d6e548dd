#include "views/QVFocusRing.h"

#include <QPainter>
#include <QWidget>

bool qv_showsFocusRing(const QWidget &widget)
{
    return widget.hasFocus() && widget.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

void qv_paintFocusRing(QPainter &painter, const QWidget &widget, const QColor &color)
{
    if (!qv_showsFocusRing(widget))
        return;
    constexpr qreal width = 2;
    constexpr qreal radius = 3;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    const QRectF ring = QRectF(widget.rect()).marginsRemoved(QMarginsF(width, width, width, width));
    painter.drawRoundedRect(ring, radius, radius);
}
