#pragma once

#include <QTransform>

class QPainter;
class QVLayer;

/// Draws a tree of layers as it is presented, and knows what that covers.
class QVLayerPainter
{
public:
    explicit QVLayerPainter(QPainter &painter);

    void paint(const QVLayer &root);

    /// What the layer and its sublayers cover, pen width included, in the root layer's coordinates.
    [[nodiscard]] static QRectF rectInRoot(const QVLayer &layer);

private:
    void paintTree(const QVLayer &layer, const QTransform &outer, qreal outerOpacity);
    void paintOwn(const QVLayer &layer);

    QPainter &m_painter;
};
