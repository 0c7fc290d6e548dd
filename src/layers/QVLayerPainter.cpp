#include "layers/QVLayerPainter.h"

#include "layers/QVLayer.h"

#include <QPainter>
#include <QPen>

namespace {

QRectF presentedBounds(const QVLayer &layer)
{
    return {QPointF(), layer.presented().frame.size()};
}

/// How far a stroke reaches beyond its path: square caps and mitred corners, which the pen cuts at
/// twice its width, reach further than half the pen.
qreal strokeMargin(const QVLayer &layer)
{
    return layer.lineJoin() == Qt::RoundJoin && layer.lineCap() != Qt::SquareCap ? layer.lineWidth() / 2
                                                                                 : layer.lineWidth() * 2;
}

QRectF ownRect(const QVLayer &layer)
{
    QRectF rect;
    if (layer.backgroundColor().isValid() || !layer.contents().isNull())
        rect = presentedBounds(layer);
    if (layer.fillColor().isValid())
        rect |= layer.presented().path.controlPointRect();
    if (layer.strokeColor().isValid() && !layer.strokePath().isEmpty()) {
        const qreal margin = strokeMargin(layer);
        rect |= layer.strokePath().controlPointRect().adjusted(-margin, -margin, margin, margin);
    }
    return rect;
}

/// In the superlayer's coordinates.
QRectF treeRect(const QVLayer &layer)
{
    QRectF rect = ownRect(layer);
    for (const auto &sublayer : layer.sublayers())
        rect |= treeRect(*sublayer);
    return layer.presented().transform().mapRect(rect);
}

} // namespace

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

QRectF QVLayerPainter::rectInRoot(const QVLayer &layer)
{
    QRectF rect = treeRect(layer);
    for (const QVLayer *above = layer.superlayer(); above; above = above->superlayer())
        rect = above->presented().transform().mapRect(rect);
    return rect;
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
    const QRectF bounds = presentedBounds(layer);
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
        m_painter.strokePath(layer.strokePath(), QPen(layer.strokeColor(), layer.lineWidth(), Qt::SolidLine,
                                                      layer.lineCap(), layer.lineJoin()));
    }
}
