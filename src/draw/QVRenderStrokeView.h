#pragma once

#include "flow/QVStrokePath.h"

#include <QImage>
#include <QWidget>

/// The stroke on screen, above all other children of its parent. Takes no input.
///
/// The stroke is kept as a picture, so that the cost does not grow with its length: each new line is painted
/// once, and only its rectangle on screen is repainted.
class QVRenderStrokeView final : public QWidget
{
    Q_OBJECT

public:
    explicit QVRenderStrokeView(QWidget *parent);

    void moveTo(QPointF point);
    void addLineTo(QPointF point);
    void removeAllPoints();
    [[nodiscard]] const QPolygonF &renderBezierPath() const { return m_path.points(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    [[nodiscard]] bool hasCanvas() const;
    void renewCanvas();
    void drawOnCanvas(const QPointF *points, int count);

    QVStrokePath m_path;
    QImage m_canvas;
};
