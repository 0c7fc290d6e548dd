#include "layers/QVLayerPainter.h"

#include "layers/QVLayer.h"

#include <QPainter>
#include <QPen>

QVLayerPainter::QVLayerPainter(QPainter &painter)
    : m_painter(painter)
{
}

void QVLayerPainter::paint(const QVLayer &root)
{
    m_painter.save();
    m_painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    paintTree(root, m_painter.worldTransform(), m_painter.opacity());
    m_painter.restore();
}

void QVLayerPainter::paintTree(const QVLayer &layer, const QTransform &outer, qreal outerOpacity)
{
    const qreal opacity = outerOpacity * layer.presented().opacity;
    if (opacity <= 0)
        return;
    const QTransform transform = layer.presented().transform() * outer;
    const bool masked = !layer.mask().isEmpty();
    if (masked)
        m_painter.save();
    m_painter.setWorldTransform(transform);
    m_painter.setOpacity(opacity);
    if (masked)
        m_painter.setClipPath(layer.mask(), Qt::IntersectClip);
    paintOwn(layer);
    for (const auto &sublayer : layer.sublayers())
        paintTree(*sublayer, transform, opacity);
    if (masked)
        m_painter.restore();
}

void QVLayerPainter::paintOwn(const QVLayer &layer)
{
    const QRectF bounds = layer.presentedBounds();
    if (layer.backgroundColor().isValid()) {
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(layer.backgroundColor());
        m_painter.drawRoundedRect(bounds, layer.cornerRadius(), layer.cornerRadius());
    }
    if (!layer.contents().isNull()) {
        QRectF fitted(QPointF(), QSizeF(layer.contents().size()).scaled(bounds.size(), Qt::KeepAspectRatio));
        fitted.moveCenter(bounds.center());
        m_painter.drawPixmap(fitted, layer.contents(), layer.contents().rect());
    }
    if (layer.fillColor().isValid())
        m_painter.fillPath(layer.presented().path, layer.fillColor());
    if (layer.strokeColor().isValid() && !layer.strokePath().isEmpty()) {
        const auto cap = layer.hasRoundCaps() ? Qt::RoundCap : Qt::FlatCap;
        m_painter.strokePath(layer.strokePath(),
                             QPen(layer.strokeColor(), layer.lineWidth(), Qt::SolidLine, cap, Qt::RoundJoin));
    }
}
