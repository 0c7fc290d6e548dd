#include "views/QVBorderedBox.h"

#include "views/QVColors.h"

#include <QPainter>

void QVBorderedBox::paintEvent(QPaintEvent *)
{
    constexpr qreal borderWidth = 0.5;
    constexpr qreal radius = 3;
    constexpr qreal half = borderWidth / 2;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QVColors::lightGray, borderWidth));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(rect()).marginsRemoved(QMarginsF(half, half, half, half)), radius, radius);
}
