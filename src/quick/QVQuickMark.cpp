#include "quick/QVQuickMark.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <span>

namespace {

// Around the centre, turned by -45 degrees when painted: an L becomes a tick, a plus a cross.
constexpr QLineF tick[] = {{-5.5, -4.25, -5.5, 2.25}, {-5.5, 2.25, 7.5, 2.25}};
constexpr QLineF cross[] = {{0, -8, 0, 8}, {8, 0, -8, 0}};

void drawPart(QPainter &painter, std::span<const QLineF> lines, double end)
{
    double total = 0;
    for (const QLineF &line : lines)
        total += line.length();
    double left = total * end;
    for (const QLineF &line : lines) {
        if (left <= 0)
            return;
        const double part = std::min(1.0, left / line.length());
        painter.drawLine(QLineF(line.p1(), line.pointAt(part)));
        left -= line.length();
    }
}

} // namespace

QVQuickMark::QVQuickMark(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    connect(this, &QVQuickMark::shapeChanged, this, [this] { update(); });
}

void QVQuickMark::paintBox(QPainter &painter) const
{
    const double half = m_lineWidth / 2;
    painter.setBrush(m_fill);
    painter.drawRoundedRect(boundingRect().adjusted(half, half, -half, -half), m_cornerRadius,
                            m_cornerRadius);
}

void QVQuickMark::fillRing(QPainter &painter) const
{
    QPainterPath item;
    item.addRoundedRect(boundingRect(), m_cornerRadius, m_cornerRadius);
    QPainterPath disc;
    disc.addEllipse(boundingRect().center() + m_offset, m_radius, m_radius);
    painter.fillPath(disc & item, m_fill);
}

void QVQuickMark::paint(QPainter *painter)
{
    const Qt::PenCapStyle cap = m_kind == Ring ? Qt::FlatCap : Qt::RoundCap;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(m_color, m_lineWidth, Qt::SolidLine, cap, Qt::RoundJoin));
    if (m_kind == Box)
        return paintBox(*painter);
    if (m_fill.alpha() > 0)
        fillRing(*painter);
    painter->translate(boundingRect().center() + m_offset);
    if (m_kind != Ring) {
        constexpr double turn = -45;
        painter->rotate(turn);
        drawPart(*painter, m_kind == Tick ? std::span<const QLineF>(tick) : std::span<const QLineF>(cross),
                 m_strokeEnd);
        return;
    }
    constexpr double whole = 16 * 360;
    constexpr int top = 16 * 90;
    const QRectF circle(-m_radius, -m_radius, 2 * m_radius, 2 * m_radius);
    painter->drawArc(circle, top - qRound(whole * m_strokeStart),
                     -qRound(whole * (m_strokeEnd - m_strokeStart)));
}
