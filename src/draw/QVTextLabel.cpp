#include "draw/QVTextLabel.h"

#include "views/QVAccessibleRole.h"

#include <QPainter>

QVTextLabel::QVTextLabel(const QFont &font, const QColor &color, QWidget *parent)
    : QWidget(parent)
    , m_font(font)
    , m_color(color)
{
    // A drag over the label draws on what lies below.
    setAttribute(Qt::WA_TransparentForMouseEvents);
    qv_setAccessibleRole(this, QAccessible::StaticText);
}

void QVTextLabel::setText(const QString &text)
{
    m_text = text;
    setAccessibleName(text);
    updateGeometry();
    update();
}

QSize QVTextLabel::sizeHint() const
{
    return QFontMetrics(m_font).size(Qt::TextSingleLine, m_text) + m_padding;
}

void QVTextLabel::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_ground);
    painter.setFont(m_font);
    painter.setPen(m_color);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, m_text);
}
