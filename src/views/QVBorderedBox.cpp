#include "views/QVBorderedBox.h"

#include "settings/QVColors.h"

#include <QPainter>

void QVBorderedBox::setIsEdited(bool isEdited)
{
    m_isEdited = isEdited;
    update();
}

void QVBorderedBox::paintEvent(QPaintEvent *)
{
    constexpr qreal radius = 3;
    const qreal borderWidth = m_isEdited ? 2 : 0.5;
    const qreal half = borderWidth / 2;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(m_isEdited ? QVColors::accent() : QVColors::fieldBorder(), borderWidth));
    painter.setBrush(QVColors::field());
    painter.drawRoundedRect(QRectF(rect()).marginsRemoved(QMarginsF(half, half, half, half)), radius, radius);
}
