#include "views/QVLabel.h"

#include "views/QVAccessibleRole.h"
#include "views/QVOneLine.h"

#include <QPainter>

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
    m_text.setText(text, icon);
    setAccessibleName(qv_oneLine(text).trimmed());
    updateGeometry();
    update();
}

QSize QVLabel::sizeHint() const
{
    constexpr int margin = 10;
    return m_text.sizeFor(std::max(0, parentWidget()->width() - 2 * margin));
}

void QVLabel::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    m_text.paint(painter, rect(), m_color());
}
