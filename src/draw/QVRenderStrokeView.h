#pragma once

#include <QPixmap>
#include <QPolygonF>
#include <QWidget>

/// The stroke on screen, above everything else in its parent and taking no input.
///
/// What was drawn is kept as a picture, so that a longer stroke costs no more: each new line is painted
/// once, and only its own box of the screen is renewed.
class QVRenderStrokeView final : public QWidget
{
    Q_OBJECT

public:
    explicit QVRenderStrokeView(QWidget *parent);

    void moveTo(QPointF point);
    void addLineTo(QPointF point);
    void removeAllPoints();
    [[nodiscard]] const QPolygonF &renderBezierPath() const { return m_renderBezierPath; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    [[nodiscard]] bool hasCanvas() const;
    void renewCanvas();
    void drawOnCanvas(const QPointF *points, int count);

    QPolygonF m_renderBezierPath;
    QPixmap m_canvas;
};
