#pragma once

#include "flow/QVStrokePath.h"

#include <QQuickPaintedItem>

/// The line that the user draws. It repaints only the box of its newest segment.
class QVQuickStroke : public QQuickPaintedItem
{
    Q_OBJECT
    QML_NAMED_ELEMENT(QuarvoStroke)
    Q_PROPERTY(QColor color MEMBER m_color)

public:
    using QQuickPaintedItem::QQuickPaintedItem;

    void moveTo(QPointF point);
    void addLineTo(QPointF point);
    void removeAllPoints();
    void paint(QPainter *painter) override;

private:
    void repaint(const QRect &touched);

    QVStrokePath m_path;
    QColor m_color;
};
