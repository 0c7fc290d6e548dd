#include "draw/QVTextLabel.h"

#include "views/QVAccessibleRole.h"
#include "views/QVSystemFont.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr double smallestShare = 0.7;

} // namespace

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

QFont QVTextLabel::fittingFont() const
{
    // Of the usual size, so that text which the platform enlarges is not elided earlier than that.
    const int smallest = qRound(m_font.pixelSize() / qv_textScale() * smallestShare);
    return qv_fittingFont(m_font, m_text, QSizeF(parentWidget()->width(), QWIDGETSIZE_MAX), smallest);
}

QSize QVTextLabel::sizeHint() const
{
    const QSize text = QFontMetrics(fittingFont()).size(Qt::TextSingleLine, m_text);
    return {std::min(text.width(), parentWidget()->width()), text.height()};
}

void QVTextLabel::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setFont(fittingFont());
    painter.setPen(m_color);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    const QString line = painter.fontMetrics().elidedText(m_text, Qt::ElideRight, parentWidget()->width());
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, line);
}
