#include "modes/QVClickWaterRippleView.h"

#include "flow/QVClickSurface.h"
#include "layers/QVPathGeometry.h"
#include "views/QVAccessibleRole.h"

#include <QPainter>

#include <cmath>
#include <numbers>

namespace {

constexpr QColor rippleColor(255, 255, 255, 51);
constexpr qreal startRadius = 0.1;

QPainterPath circleAround(QPointF point, qreal radius)
{
    return qv_arcPath(point, radius, 0, 2 * std::numbers::pi);
}

} // namespace

QVClickWaterRippleView::QVClickWaterRippleView(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    qv_setAccessibleRole(this, QAccessible::NoRole);
}

void QVClickWaterRippleView::beganWaterRippleAnimationAtPoint(QPointF point)
{
    if (m_waterRippleLayer)
        m_waterRippleLayer->removeFromSuperlayer();
    m_waterRippleLayer = std::make_shared<QVLayer>();
    m_waterRippleLayer->setFrame(rect());
    m_waterRippleLayer->setFillColor(rippleColor);
    if (m_cornerRadius > 0) {
        QPainterPath button;
        button.addRoundedRect(rect(), m_cornerRadius, m_cornerRadius);
        m_waterRippleLayer->setMask(button);
    }
    m_host.root().addSublayer(m_waterRippleLayer);
    // With the diagonal as its radius the ripple reaches the far corner from any point.
    const qreal endRadius = std::hypot(float(width()), float(height()));
    // The layer itself has no path, so the ripple disappears at the end of the animation.
    QVAnimation spread = QVAnimation::basic(QVLayerProperty::Path, circleAround(point, startRadius),
                                            circleAround(point, endRadius));
    spread.setDuration(std::chrono::duration<double>(QVClickSurface::rippleDuration).count());
    m_waterRippleLayer->addAnimation(spread);
}

void QVClickWaterRippleView::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    m_host.paint(painter);
}
