#pragma once

#include <QTransform>

class QPainter;
class QVLayer;

/// Draws the presented values of a tree of layers.
class QVLayerPainter
{
public:
    explicit QVLayerPainter(QPainter &painter);

    void paint(const QVLayer &root);

private:
    void paintTree(const QVLayer &layer, const QTransform &outer, qreal outerOpacity);
    void paintOwn(const QVLayer &layer);

    QPainter &m_painter;
};
