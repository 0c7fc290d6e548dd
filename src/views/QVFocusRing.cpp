#include "views/QVFocusRing.h"

#include "settings/QVColors.h"
#include "views/QVAccessibleRole.h"

#include <QPainter>

bool qv_showsFocusRing(const QWidget &widget)
{
    return widget.hasFocus() && widget.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

void qv_paintFocusRing(QPainter &painter, const QWidget &widget)
{
    if (!qv_showsFocusRing(widget))
        return;
    constexpr qreal outerWidth = 4;
    constexpr qreal innerWidth = 2;
    constexpr qreal half = outerWidth / 2;
    painter.setBrush(Qt::NoBrush);
    const QRectF ring = QRectF(widget.rect()).marginsRemoved(QMarginsF(half, half, half, half));
    for (const auto &[colour, width] :
         {std::pair(QColor(Qt::white), outerWidth), std::pair(QVColors::accent(), innerWidth)}) {
        painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawRect(ring);
    }
}

QVFocusRing::QVFocusRing(QWidget *widget)
    : QWidget(widget)
{
    qv_setAccessibleRole(this, QAccessible::NoRole);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void QVFocusRing::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    qv_paintFocusRing(painter, *parentWidget());
}
