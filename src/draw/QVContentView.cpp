#include "draw/QVContentView.h"

#include "settings/QVColors.h"

#include <QPainter>

QVContentView::QVContentView(QWidget *parent)
    : QWidget(parent)
{
}

void QVContentView::setGap(const QWidget *picture, const QWidget *strip)
{
    m_picture = picture;
    m_strip = strip;
}

void QVContentView::paintEvent(QPaintEvent * /*event*/)
{
    if (m_strip->isHidden())
        return;
    const int top = m_picture->geometry().bottom() + 1;
    QPainter(this).fillRect(0, top, width(), m_strip->y() - top, QVColors::strip());
}
