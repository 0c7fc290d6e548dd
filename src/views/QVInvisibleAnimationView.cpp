#include "views/QVInvisibleAnimationView.h"

#include "flow/QVInvisibleSurface.h"
#include "layers/QVPathGeometry.h"
#include "paint/QVEasing.h"
#include "settings/QVBundleImage.h"
#include "settings/QVLanguageNotice.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVAccessibleRole.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPointer>
#include <QRandomGenerator>

#include <cmath>
#include <numbers>
#include <utility>

using std::numbers::pi;

namespace {

constexpr QColor animationColor(40, 193, 247);
constexpr QColor backAnimationColor(169, 230, 250);
// White text on the strip needs a shadow. Its edge is paler, so that it looks soft.
constexpr QColor shadowColor(0, 0, 0, 70);
constexpr QColor shadowEdgeColor(0, 0, 0, 32);
constexpr qreal ringWidth = 6;
constexpr qreal haloWidth = 2;
constexpr qreal haloGrowth = 10;
constexpr qreal logoSide = 40;
constexpr qreal stripHeight = 60;
constexpr qreal halfStrip = stripHeight / 2;
constexpr double openSeconds = std::chrono::duration<double>(QVInvisibleSurface::openDuration).count();
constexpr double haloSeconds = std::chrono::duration<double>(QVInvisibleSurface::haloDuration).count();

QString passText()
{
    return QStringLiteral("PASS");
}

QFont passFont()
{
    QFont font;
    font.setPixelSize(20);
    font.setWeight(QFont::Normal);
    return font;
}

QPainterPath passTextPath()
{
    const QFontMetricsF metrics(passFont());
    QPainterPath text;
    text.addText(0, halfStrip + (metrics.ascent() - metrics.descent()) / 2, passFont(), passText());
    return text;
}

void moveTo(QVLayer &layer, const QRectF &from, const QRectF &to)
{
    QVAnimation animation = QVAnimation::basic(QVLayerProperty::Frame, from, to);
    animation.setDuration(openSeconds);
    animation.setTimingCurve(QVEasing::easeOut());
    layer.setFrame(to);
    layer.addAnimation(animation);
}

} // namespace

QVInvisibleAnimationView::QVInvisibleAnimationView(QWidget *parent)
    : QWidget(parent)
    , m_name(QVKey::inVerify)
    , m_random([] { return QRandomGenerator::global()->generate(); })
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    qv_setAccessibleRole(this, QAccessible::Notification);
    qv_followLanguage(this, [this] { setAccessibleName(m_name.text()); });
    setFrame({0, 0, defaultWidth(), defaultWidth()});
}

QRect QVInvisibleAnimationView::frame() const
{
    return geometry().marginsRemoved(overflow());
}

void QVInvisibleAnimationView::setFrame(const QRect &frame)
{
    m_frameSize = frame.size();
    const QMargins margins = overflow();
    setGeometry(frame.marginsAdded(margins));
    m_host.root().setFrame(QRectF(QPointF(margins.left(), margins.top()), QSizeF(m_frameSize)));
}

void QVInvisibleAnimationView::setCenter(QPoint centre)
{
    QRect moved = frame();
    moved.moveTopLeft(centre - QPoint(moved.width() / 2, moved.height() / 2));
    setFrame(moved);
}

QPainterPath QVInvisibleAnimationView::circlePath() const
{
    return qv_arcPath(bounds().center(), bounds().width() / 2, 0, 2 * pi);
}

void QVInvisibleAnimationView::clearLayers()
{
    m_host.root().removeSublayers();
}

void QVInvisibleAnimationView::startLoadingAnimation()
{
    constexpr quint32 starts = 75;
    constexpr qreal hundred = 100;
    constexpr qreal arcLength = 0.25;
    clearLayers();
    layOutRing();
    QVLayer &arc = circleAnimationLayer();
    arc.setStrokeStart(m_random() % starts / hundred);
    arc.setStrokeEnd(arc.strokeStart() + arcLength);
    QVAnimation spin = QVAnimation::basic(QVLayerProperty::Rotation, 0.0, 2 * pi);
    spin.setDuration(1);
    spin.setRepeatsForever();
    arc.addAnimation(spin);
}

void QVInvisibleAnimationView::passAnimationComplete(std::function<void()> completion)
{
    m_name = QVKey::clickPass;
    setAccessibleName(m_name.text());
    qv_readOut(this);
    clearLayers();
    openStrip();
    passCircleAnimationLayer().setPath(circlePath());
    passCircleAnimationLayer().setOpacity(0);
    layOutRing();
    // Behind the smooth edge of the filled ring a pale one of the same width would shine through.
    circleBackLayer().setLineWidth(ringWidth - 1);
    fillRing();
    QVScheduler::shared().schedule(QVInvisibleSurface::haloDelay, [view = QPointer(this)] {
        if (view)
            view->startHalo();
    });
    // Not owned by this view: the completion is called even if the badge has been destroyed meanwhile.
    if (completion)
        QVScheduler::shared().schedule(QVInvisibleSurface::passDuration, std::move(completion));
}

void QVInvisibleAnimationView::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    m_host.paint(painter);
}

std::shared_ptr<QVLayer> QVInvisibleAnimationView::makeLayer()
{
    auto layer = std::make_shared<QVLayer>();
    m_host.root().addSublayer(layer);
    return layer;
}

QVLayer &QVInvisibleAnimationView::circleBackLayer()
{
    if (!m_circleBackLayer) {
        m_circleBackLayer = makeLayer();
        m_circleBackLayer->setFillColor(Qt::white);
        m_circleBackLayer->setStrokeColor(backAnimationColor);
        m_circleBackLayer->setLineWidth(ringWidth);
    }
    return *m_circleBackLayer;
}

QVLayer &QVInvisibleAnimationView::circleAnimationLayer()
{
    if (!m_circleAnimationLayer) {
        m_circleAnimationLayer = makeLayer();
        m_circleAnimationLayer->setStrokeColor(animationColor);
        m_circleAnimationLayer->setLineWidth(ringWidth);
    }
    return *m_circleAnimationLayer;
}

QVLayer &QVInvisibleAnimationView::passView()
{
    if (!m_passView)
        m_passView = makeLayer();
    return *m_passView;
}

QVLayer &QVInvisibleAnimationView::passHalfCircleView()
{
    if (!m_passHalfCircleView)
        m_passHalfCircleView = makeLayer();
    return *m_passHalfCircleView;
}

QVLayer &QVInvisibleAnimationView::passShadow()
{
    if (!m_passShadow) {
        m_passShadow = makeLayer();
        m_passShadow->setFillColor(shadowColor);
        m_passShadow->setStrokeColor(shadowEdgeColor);
        m_passShadow->setLineWidth(2);
        m_passShadow->setPath(passTextPath().translated(0, 1));
    }
    return *m_passShadow;
}

QVLayer &QVInvisibleAnimationView::passLabel()
{
    if (!m_passLabel) {
        m_passLabel = makeLayer();
        m_passLabel->setFillColor(Qt::white);
        m_passLabel->setPath(passTextPath());
    }
    return *m_passLabel;
}

QVLayer &QVInvisibleAnimationView::passCircleAnimationLayer()
{
    if (!m_passCircleAnimationLayer) {
        m_passCircleAnimationLayer = makeLayer();
        m_passCircleAnimationLayer->setStrokeColor(Qt::white);
        m_passCircleAnimationLayer->setLineWidth(haloWidth);
    }
    return *m_passCircleAnimationLayer;
}

QVLayer &QVInvisibleAnimationView::logoIV()
{
    if (!m_logoIV) {
        m_logoIV = makeLayer();
        m_logoIV->setContents(qv_imageFromBundleWithName(QStringLiteral("qv_invisible_logo")));
    }
    return *m_logoIV;
}

void QVInvisibleAnimationView::layOutRing()
{
    for (QVLayer *ring : {&circleBackLayer(), &circleAnimationLayer()}) {
        ring->setPath(circlePath());
        ring->setFrame(bounds());
    }
    QRectF logo(0, 0, logoSide, logoSide);
    logo.moveCenter(bounds().center());
    logoIV().setFrame(logo);
}

void QVInvisibleAnimationView::fillRing()
{
    QVAnimation fill = QVAnimation::basic(QVLayerProperty::StrokeEnd, 0.0, 1.0);
    fill.setDuration(openSeconds);
    circleAnimationLayer().addAnimation(fill);
}

void QVInvisibleAnimationView::openStrip()
{
    const QPointF c = bounds().center();
    const qreal top = c.y() - halfStrip;
    const qreal label = labelWidth();
    const qreal open = openLength();
    passHalfCircleView().setBackgroundColor(animationColor);
    passHalfCircleView().setMask(qv_arcPath({0, halfStrip}, halfStrip, -pi / 2, pi / 2));
    passView().setBackgroundColor(animationColor);
    moveTo(passHalfCircleView(), {c.x(), top, halfStrip, stripHeight},
           {c.x() + open - 1, top, halfStrip, stripHeight});
    moveTo(passView(), {c.x(), top, 0, stripHeight}, {c.x(), top, open, stripHeight});
    for (QVLayer *text : {&passShadow(), &passLabel()}) {
        moveTo(*text, {c.x() - label / 2, top, label, stripHeight},
               {c.x() + open - label + 5, top, label, stripHeight});
    }
}

void QVInvisibleAnimationView::startHalo()
{
    const QPainterPath grown = qv_arcPath(bounds().center(), bounds().width() / 2 + haloGrowth, 0, 2 * pi);
    QVAnimation growth = QVAnimation::basic(QVLayerProperty::Path, passCircleAnimationLayer().path(), grown);
    growth.setDuration(haloSeconds);
    growth.setTimingCurve(QVEasing::easeOut());
    QVAnimation fading = QVAnimation::basic(QVLayerProperty::Opacity, 0.5, 0.0);
    fading.setDuration(haloSeconds);
    fading.setTimingCurve(QVEasing::easeIn());
    QVAnimation halo = QVAnimation::group({growth, fading});
    halo.setDuration(haloSeconds);
    passCircleAnimationLayer().addAnimation(halo);
}

qreal QVInvisibleAnimationView::labelWidth() const
{
    return QFontMetricsF(passFont()).horizontalAdvance(passText()) + 0.5;
}

qreal QVInvisibleAnimationView::openLength() const
{
    return bounds().width() / 2 + labelWidth() + 10;
}

QMargins QVInvisibleAnimationView::overflow() const
{
    // One pixel more than the pen of the halo and the round end of the strip, for antialiasing.
    const int halo = int(std::ceil(haloGrowth + haloWidth / 2)) + 1;
    const int strip = int(std::ceil(openLength() + halfStrip - bounds().width() / 2)) + 1;
    return {halo, halo, strip, halo};
}
