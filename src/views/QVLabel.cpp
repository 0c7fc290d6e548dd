#include "views/QVLabel.h"

#include "settings/QVOneLine.h"
#include "views/QVAccessibleRole.h"

#include <QPainter>

#include <algorithm>

QVLabel::QVLabel(const QVTextStyle &style, QVColors::Source source, QAccessible::Role role, QWidget *parent)
    : QWidget(parent)
    , m_text(style)
    , m_color(source)
{
    qv_setAccessibleRole(this, role);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void QVLabel::setText(const QString &text, const QPixmap &icon)
{
    m_text.setText(text, icon.toImage());
    setAccessibleName(qv_oneLine(text).trimmed());
    updateGeometry();
    update();
}

QSize QVLabel::sizeHint() const
{
    constexpr int margin = 10;
    return sizeFor(std::clamp(parentWidget()->width() - 2 * margin, 0, maximumWidth()));
}

QSize QVLabel::sizeFor(int width) const
{
    return m_text.sizeFor(width - m_padding.width()) + m_padding;
}

void QVLabel::setGround(const QColor &ground, QSize padding)
{
    m_ground = ground;
    m_padding = padding;
}

void QVLabel::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    if (m_ground.isValid())
        painter.fillRect(rect(), m_ground);
    const int side = m_padding.width() / 2;
    m_text.paint(painter, rect().adjusted(side, 0, -side, 0), m_color());
}
