#pragma once

#include "layers/QVLayerHost.h"

#include <QWidget>

/// Covers the click button and shows a ripple that spreads from the point of the touch. Takes no input.
class QVClickWaterRippleView : public QWidget
{
    Q_OBJECT

public:
    explicit QVClickWaterRippleView(QWidget *parent = nullptr);

    /// Sets the corner radius of the button, to which ripples are clipped.
    void setCornerRadius(qreal radius) { m_cornerRadius = radius; }
    /// Starts a ripple, and ends one in progress.
    void beganWaterRippleAnimationAtPoint(QPointF point);

    [[nodiscard]] const QVLayer *waterRippleLayer() const { return m_waterRippleLayer.get(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QVLayerHost m_host{*this};
    qreal m_cornerRadius = 0;
    std::shared_ptr<QVLayer> m_waterRippleLayer;
};
