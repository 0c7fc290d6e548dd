#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QPolygonF>
#include <QRect>

class QColor;
class QPainter;

/// The line that the user draws, as it is shown, and the pixels that each change of it touches.
class QUARVO_CORE_EXPORT QVStrokePath
{
public:
    // Each returns the rectangle to repaint, including antialiasing. It is empty if nothing changes on
    // screen.
    [[nodiscard]] QRect moveTo(QPointF point);
    [[nodiscard]] QRect addLineTo(QPointF point);
    [[nodiscard]] QRect removeAllPoints();

    /// Paints what lies in \a area. Lines that are elsewhere are skipped.
    void paint(QPainter &painter, const QRect &area, const QColor &color) const;

private:
    QPolygonF m_points;
};
