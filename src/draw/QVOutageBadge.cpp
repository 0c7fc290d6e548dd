#include "draw/QVOutageBadge.h"

#include "views/QVAccessibleRole.h"
#include "views/QVColors.h"
#include "views/QVSystemFont.h"

#include <QPainter>

namespace {

constexpr int badgeFontSize = 12;
constexpr QSize badgePadding(10, 5);

// Made where it is needed: a slanted font is a file to load.
QFont badgeFont()
{
    QFont font = qv_systemFont(badgeFontSize);
    font.setItalic(true);
    return font;
}

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
    m_text = text;
    setAccessibleName(text);
    resize(QFontMetrics(badgeFont()).size(Qt::TextSingleLine, text) + badgePadding);
    update();
}

void QVOutageBadge::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), QVColors::badge);
    painter.setFont(badgeFont());
    painter.setPen(Qt::white);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, m_text);
}
