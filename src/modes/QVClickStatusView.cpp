#include "modes/QVClickStatusView.h"

#include "flow/QVClickSurface.h"
#include "layers/QVPathGeometry.h"
#include "settings/QVBundleImage.h"
#include "views/QVAccessibleRole.h"

#include <QPainter>
#include <QPointer>
#include <QRandomGenerator>

#include <numbers>

using std::numbers::pi;

namespace {

constexpr qreal logoWidth = 16;
constexpr qreal circleRadius = 13;
constexpr qreal smallCircleRadius = 8;
constexpr qreal smallCircleAnimationRadius = 4;
constexpr qreal ringLineWidth = 2;
constexpr qreal arcLength = 0.15;
constexpr QColor stripColor(0, 0, 0, 77);
constexpr QColor ringColor(255, 255, 255);
constexpr QColor paleColor(255, 255, 255, 128);

QVAnimation pulse()
{
    QVAnimation animation = QVAnimation::keyFrames(QVLayerProperty::Scale, {1.0, 0.9, 0.8, 0.9, 1.0});
    animation.setDuration(1);
    animation.setRepeatsForever();
    return animation;
}

QVAnimation reveal(std::chrono::duration<double> duration)
{
    QVAnimation animation = QVAnimation::basic(QVLayerProperty::StrokeEnd, 0.0, 1.0);
    animation.setDuration(duration.count());
    return animation;
}

QPainterPath circlePath(QPointF centre, qreal radius)
{
    return qv_arcPath(centre, radius, -pi / 2, 3 * pi / 2);
}

void restart(QVLayer &layer, const QVAnimation &animation)
{
    layer.removeAllAnimations();
    layer.addAnimation(animation);
}

} // namespace

QVClickStatusView::QVClickStatusView(QWidget *parent)
    : QWidget(parent)
    , m_random([] { return QRandomGenerator::global()->generate(); })
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    qv_setAccessibleRole(this, QAccessible::NoRole);
}

void QVClickStatusView::setClickStatus(QVClickStatus status)
{
    m_clickStatus = status;
    clear();
    switch (status) {
    case QVClickStatusNormal:
        return showNormal();
    case QVClickStatusTouching:
        return showTouching();
    case QVClickStatusVerifying:
        return showVerifying();
    case QVClickStatusDrawing:
        return showDrawing();
    case QVClickStatusPassed:
        showEnd(successTickAnimationPath());
        return successAnimation();
    case QVClickStatusFailed:
        showEnd(errorAnimationPath());
        return errorAnimation();
    }
}

void QVClickStatusView::setCornerRadius(qreal radius)
{
    m_cornerRadius = radius;
    update();
}

void QVClickStatusView::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing, m_cornerRadius > 0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(stripColor);
    // The corners on the right are outside the widget, so that they are not round.
    painter.drawRoundedRect(QRectF(0, 0, width() + m_cornerRadius, height()), m_cornerRadius, m_cornerRadius);
    m_host.paint(painter);
}

void QVClickStatusView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    // Keeps the layers centred without restarting their animations.
    m_host.root().setFrame(QRectF(centre() - m_builtCentre, QSizeF()));
}

void QVClickStatusView::clear()
{
    m_host.root().removeSublayers();
    m_normalLogoIV.reset();
    m_statusCricleLayer.reset();
    m_statusLoadingLayer.reset();
    m_statusSmallCircleLayer.reset();
    m_statusAnimationLayer.reset();
    m_builtCentre = centre();
    m_host.root().setFrame({});
}

void QVClickStatusView::showNormal()
{
    const QPixmap logo = qv_imageFromBundleWithName(QStringLiteral("qv_click_btn_logo"));
    if (logo.isNull())
        return;
    QVLayer &layer = ensure(m_normalLogoIV);
    QRectF frame(0, 0, logoWidth, logoWidth * logo.height() / logo.width());
    frame.moveCenter(centre());
    layer.setFrame(frame);
    layer.setContents(logo);
}

void QVClickStatusView::showTouching()
{
    statusCricleLayer().setPath(statusCirclePath());
    statusCircleLayerScaleAnimation();
}

void QVClickStatusView::showVerifying()
{
    constexpr quint32 starts = 8;
    constexpr qreal startStep = 10;
    statusCricleLayer().setPath(statusCirclePath());
    statusCricleLayer().setStrokeColor(paleColor);
    QVLayer &arc = statusLoadingLayer();
    arc.setPath(statusCirclePath());
    arc.setStrokeStart(m_random() % starts / startStep);
    arc.setStrokeEnd(arc.strokeStart() + arcLength);
    statusLoadingLayerAnimation();
}

void QVClickStatusView::showDrawing()
{
    constexpr qreal dotLineWidth = 8;
    statusCricleLayer().setPath(statusCirclePath());
    statusCricleLayer().setStrokeColor(paleColor);
    statusLoadingLayer().setPath(statusCirclePath());
    statusSmallCircleLayer().setPath(statusSmallCirclePath());
    statusAnimationLayer().setLineWidth(dotLineWidth);
    statusAnimationLayer().setPath(statusSmallCircleAnimationPath());
    statusWaitingAnimation();
}

void QVClickStatusView::showEnd(const QPainterPath &mark)
{
    statusCricleLayer().setPath(statusCirclePath());
    statusCricleLayer().setStrokeColor(paleColor);
    statusLoadingLayer().setPath(statusCirclePath());
    QVLayer &layer = statusAnimationLayer();
    layer.setLineWidth(ringLineWidth);
    layer.setRoundCaps(true);
    layer.setPath(mark);
    layer.setRotation(-pi / 4);
}

QVLayer &QVClickStatusView::statusCricleLayer()
{
    if (!m_statusCricleLayer) {
        ensure(m_statusCricleLayer).setStrokeColor(ringColor);
        m_statusCricleLayer->setLineWidth(ringLineWidth);
    }
    return *m_statusCricleLayer;
}

QVLayer &QVClickStatusView::statusLoadingLayer()
{
    if (!m_statusLoadingLayer) {
        ensure(m_statusLoadingLayer).setStrokeColor(ringColor);
        m_statusLoadingLayer->setLineWidth(ringLineWidth);
    }
    return *m_statusLoadingLayer;
}

QVLayer &QVClickStatusView::statusSmallCircleLayer()
{
    if (!m_statusSmallCircleLayer)
        ensure(m_statusSmallCircleLayer).setFillColor(paleColor);
    return *m_statusSmallCircleLayer;
}

QVLayer &QVClickStatusView::statusAnimationLayer()
{
    if (!m_statusAnimationLayer)
        ensure(m_statusAnimationLayer).setStrokeColor(ringColor);
    return *m_statusAnimationLayer;
}

QVLayer &QVClickStatusView::ensure(std::shared_ptr<QVLayer> &layer)
{
    layer = std::make_shared<QVLayer>();
    layer->setFrame(rect());
    m_host.root().addSublayer(layer);
    return *layer;
}

void QVClickStatusView::statusCircleLayerScaleAnimation()
{
    restart(statusCricleLayer(), pulse());
}

void QVClickStatusView::statusLoadingLayerAnimation()
{
    QVAnimation spin = QVAnimation::basic(QVLayerProperty::Rotation, std::nullopt, 2 * pi);
    spin.setDuration(1);
    spin.setRepeatsForever();
    restart(statusLoadingLayer(), spin);
}

void QVClickStatusView::statusWaitingAnimation()
{
    restart(statusLoadingLayer(), reveal(QVClickSurface::ringDuration));
    restart(statusAnimationLayer(), reveal(QVClickSurface::ringDuration));
    // The pulse starts even if the status has changed. Then it runs on a new, empty layer and shows nothing.
    QVScheduler::shared().schedule(QVClickSurface::ringDuration, [view = QPointer(this)] {
        if (view)
            view->statusWaitingSecondStep();
    });
}

void QVClickStatusView::statusWaitingSecondStep()
{
    restart(statusAnimationLayer(), pulse());
}

void QVClickStatusView::successAnimation()
{
    restart(statusAnimationLayer(), reveal(QVClickSurface::markDuration));
}

void QVClickStatusView::errorAnimation()
{
    restart(statusAnimationLayer(), reveal(QVClickSurface::markDuration));
}

QPointF QVClickStatusView::centre() const
{
    return {width() / 2.0, height() / 2.0};
}

QPainterPath QVClickStatusView::statusCirclePath() const
{
    return circlePath(centre(), circleRadius);
}

QPainterPath QVClickStatusView::statusSmallCirclePath() const
{
    return circlePath(centre(), smallCircleRadius);
}

QPainterPath QVClickStatusView::statusSmallCircleAnimationPath() const
{
    return circlePath(centre(), smallCircleAnimationRadius);
}

QPainterPath QVClickStatusView::successTickAnimationPath() const
{
    // An L, which the rotation of the layer turns into a tick.
    const QPointF c = centre() + QPointF(1, -1);
    QPainterPath path(c + QPointF(-6.5, -3.25));
    path.lineTo(c + QPointF(-6.5, 3.25));
    path.lineTo(c + QPointF(6.5, 3.25));
    return path;
}

QPainterPath QVClickStatusView::errorAnimationPath() const
{
    // A plus, which the rotation of the layer turns into a cross.
    const QPointF c = centre();
    QPainterPath path(c + QPointF(0, -8));
    path.lineTo(c + QPointF(0, 8));
    path.moveTo(c + QPointF(8, 0));
    path.lineTo(c + QPointF(-8, 0));
    return path;
}
