#include "views/QVFocusRing.h"

#include "settings/QVColors.h"
#include "views/QVAccessibleRole.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr QColor darkLine(0, 0, 0, 170);

void paintRing(QPainter &painter, const QRectF &bounds, qreal radius, const QColor &line)
{
    constexpr qreal ringWidth = 4;
    constexpr qreal lineWidth = 2;
    constexpr qreal half = ringWidth / 2;
    painter.setRenderHint(QPainter::Antialiasing, radius > 0);
    painter.setBrush(Qt::NoBrush);
    const QRectF middle = bounds.marginsRemoved(QMarginsF(half, half, half, half));
    const qreal middleRadius = std::max(0.0, radius - half);
    for (const auto &[colour, width] :
         {std::pair(QColor(Qt::white), ringWidth), std::pair(line, lineWidth)}) {
        painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawRoundedRect(middle, middleRadius, middleRadius);
    }
}

} // namespace

bool qv_showsFocusRing(const QWidget &widget)
{
    return widget.hasFocus() && widget.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

void qv_paintFocusRing(QPainter &painter, const QWidget &widget)
{
    if (qv_showsFocusRing(widget))
        paintRing(painter, widget.rect(), 0, QVColors::accent());
}

QVFocusRing::QVFocusRing(QWidget *widget)
    : QWidget(widget)
{
    qv_setAccessibleRole(this, QAccessible::NoRole);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void QVFocusRing::fit(qreal radius)
{
    m_radius = radius;
    setGeometry(parentWidget()->rect());
    update();
}

void QVFocusRing::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    if (qv_showsFocusRing(*parentWidget()))
        paintRing(painter, rect(), m_radius, m_isDark ? darkLine : QVColors::accent());
}
