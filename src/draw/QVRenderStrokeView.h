#pragma once

#include "flow/QVStrokePath.h"

#include <QWidget>

/// The stroke on screen, above all other children of its parent. Takes no input.
class QVRenderStrokeView final : public QWidget
{
    Q_OBJECT

public:
    explicit QVRenderStrokeView(QWidget *parent);

    void moveTo(QPointF point);
    void addLineTo(QPointF point);
    void removeAllPoints();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QVStrokePath m_path;
};
