#include "popup/QVUnfoldEffect.h"

#include <QPainter>
#include <QWidget>

// Qt does not paint the parts that an opaque widget covers, even if an effect paints that widget elsewhere.
// So no widget may be opaque while the effect is active.
QVUnfoldEffect::QVUnfoldEffect(QWidget *widget)
    : QGraphicsEffect(widget)
{
    for (QWidget *part : widget->findChildren<QWidget *>()) {
        if (!part->testAttribute(Qt::WA_OpaquePaintEvent))
            continue;
        part->setAttribute(Qt::WA_OpaquePaintEvent, false);
        m_opaque.append(part);
    }
}

QVUnfoldEffect::~QVUnfoldEffect()
{
    for (const QPointer<QWidget> &part : m_opaque) {
        if (part)
            part->setAttribute(Qt::WA_OpaquePaintEvent);
    }
}

void QVUnfoldEffect::setScale(qreal scale)
{
    m_scale = scale;
    update();
}

void QVUnfoldEffect::draw(QPainter *painter)
{
    if (m_scale <= 0)
        return;
    QPoint offset;
    const QPixmap pixmap = sourcePixmap(Qt::LogicalCoordinates, &offset, QGraphicsEffect::NoPad);
    const qreal middle = sourceBoundingRect().center().y();
    painter->save();
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->translate(0, middle);
    painter->scale(1, m_scale);
    painter->translate(0, -middle);
    painter->drawPixmap(offset, pixmap);
    painter->restore();
}
