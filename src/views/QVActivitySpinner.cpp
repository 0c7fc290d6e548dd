#include "views/QVActivitySpinner.h"

#include "views/QVAccessibleRole.h"

#include <QPainter>

#include <numbers>

namespace {

constexpr QColor grey(150, 150, 150);
constexpr qreal spinnerWidth = 2;
constexpr qreal visiblePart = 0.75;

QVAnimation turning()
{
    QVAnimation animation = QVAnimation::basic(QVLayerProperty::Rotation, 0.0, 2 * std::numbers::pi);
    animation.setDuration(1);
    animation.setRepeatsForever();
    return animation;
}

} // namespace

QVActivitySpinner::QVActivitySpinner(QWidget *parent)
    : QWidget(parent)
    , m_layers(*this)
    , m_ring(std::make_shared<QVLayer>())
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    qv_setAccessibleRole(this, QAccessible::NoRole);
    const QRectF square(0, 0, defaultSide, defaultSide);
    QPainterPath circle;
    circle.addEllipse(
        square.marginsRemoved(QMarginsF(spinnerWidth, spinnerWidth, spinnerWidth, spinnerWidth)));
    m_ring->setFrame(square);
    m_ring->setPath(circle);
    m_ring->setStrokeColor(grey);
    m_ring->setStrokeEnd(visiblePart);
    m_ring->setLineWidth(spinnerWidth);
    m_ring->setRoundCaps(true);
    m_layers.root().addSublayer(m_ring);
}

void QVActivitySpinner::startAnimating()
{
    m_ring->removeAllAnimations();
    m_ring->addAnimation(turning());
    show();
}

void QVActivitySpinner::stopAnimating()
{
    m_ring->removeAllAnimations();
    hide();
}

void QVActivitySpinner::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    m_layers.paint(painter);
}
