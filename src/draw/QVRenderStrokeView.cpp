#include "draw/QVRenderStrokeView.h"

#include "settings/QVColors.h"
#include "views/QVAccessibleRole.h"

#include <QPaintEvent>
#include <QPainter>

QVRenderStrokeView::QVRenderStrokeView(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    qv_setAccessibleRole(this, QAccessible::NoRole);
}

void QVRenderStrokeView::moveTo(QPointF point)
{
    update(m_path.moveTo(point));
}

void QVRenderStrokeView::addLineTo(QPointF point)
{
    update(m_path.addLineTo(point));
}

void QVRenderStrokeView::removeAllPoints()
{
    update(m_path.removeAllPoints());
}

void QVRenderStrokeView::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    m_path.paint(painter, event->rect(), QVColors::accent());
}
