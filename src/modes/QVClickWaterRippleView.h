#pragma once

#include "layers/QVLayerHost.h"

#include <QWidget>

/// Covers the click button and shows a ripple spreading from where it was touched. Takes no touches.
class QVClickWaterRippleView : public QWidget
{
    Q_OBJECT

public:
    explicit QVClickWaterRippleView(QWidget *parent = nullptr);

    /// That of the button, which no ripple leaves.
    void setCornerRadius(qreal radius) { m_cornerRadius = radius; }
    /// Cuts off a ripple in progress.
    void beganWaterRippleAnimationAtPoint(QPointF point);

    [[nodiscard]] const QVLayer *waterRippleLayer() const { return m_waterRippleLayer.get(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QVLayerHost m_host{*this};
    qreal m_cornerRadius = 0;
    std::shared_ptr<QVLayer> m_waterRippleLayer;
};
