#include "draw/QVTextLabel.h"

#include <QPainter>

QVTextLabel::QVTextLabel(const QFont &font, const QColor &color, QWidget *parent)
    : QLabel(parent)
    , m_font(font)
    , m_color(color)
{
    setTextFormat(Qt::PlainText);
    // A drag over the label draws on what lies below.
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

QSize QVTextLabel::sizeHint() const
{
    return QFontMetrics(m_font).size(Qt::TextSingleLine, text()) + m_padding;
}

void QVTextLabel::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_ground);
    painter.setFont(m_font);
    painter.setPen(m_color);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
}
