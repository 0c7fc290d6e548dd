#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QPen>
#include <QPolygonF>
#include <QRect>

/// The line that the user draws, as it is shown, and the pixels that each change of it touches.
class QUARVO_CORE_EXPORT QVStrokePath
{
public:
    // Each returns the rectangle to repaint, including antialiasing. It is empty if nothing changes on
    // screen.
    [[nodiscard]] QRect moveTo(QPointF point);
    [[nodiscard]] QRect addLineTo(QPointF point);
    [[nodiscard]] QRect removeAllPoints();

    [[nodiscard]] const QPolygonF &points() const { return m_points; }

    /// With round caps and joins, lines that are drawn one by one look like one line.
    [[nodiscard]] static QPen pen(const QColor &color);

private:
    QPolygonF m_points;
};
