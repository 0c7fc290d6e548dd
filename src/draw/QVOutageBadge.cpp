#include "draw/QVOutageBadge.h"

#include "views/QVAccessibleRole.h"
#include "views/QVColors.h"
#include "views/QVSystemFont.h"

#include <QPainter>

namespace {

constexpr QSize badgePadding(10, 5);

} // namespace

QVOutageBadge::QVOutageBadge(QWidget *parent)
    : QWidget(parent)
{
    // A drag over the badge draws on what lies below.
    setAttribute(Qt::WA_TransparentForMouseEvents);
    qv_setAccessibleRole(this, QAccessible::StaticText);
}

void QVOutageBadge::setText(const QString &text)
{
    m_text.setText(text);
    setAccessibleName(text);
    resize(m_text.sizeFor(QWIDGETSIZE_MAX) + badgePadding);
    update();
}

void QVOutageBadge::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), QVColors::badge);
    m_text.paint(painter, rect(), Qt::white);
}
