#include "views/QVRenderDrawImageViewLoadingLayer.h"

#include "settings/QVColors.h"

namespace {

constexpr int dotCount = 3;
constexpr qreal dotSide = 10;
constexpr qreal dotGap = 5;

QVAnimation pulse(int index)
{
    QVAnimation animation = QVAnimation::keyFrames(QVLayerProperty::Scale, {1.0, 0.3, 1.0}, {0, 0.3, 1});
    animation.setDuration(0.75);
    animation.setRepeatsForever();
    animation.setBeginTime(0.12 * (index + 1));
    return animation;
}

} // namespace

void QVRenderDrawImageViewLoadingLayer::startLoading()
{
    stopLoading();
    for (int i = 0; i < dotCount; ++i) {
        const auto dot = std::make_shared<QVLayer>();
        dot->setBackgroundColor(QVColors::accent());
        dot->setCornerRadius(dotSide / 2);
        dot->addAnimation(pulse(i));
        addSublayer(dot);
    }
    centerDots();
}

void QVRenderDrawImageViewLoadingLayer::stopLoading()
{
    removeSublayers();
}

void QVRenderDrawImageViewLoadingLayer::centerDots()
{
    qreal x = bounds().width() / 2 - 1.5 * dotSide - dotGap;
    const qreal y = bounds().height() / 2 - dotSide / 2;
    for (const auto &dot : sublayers()) {
        dot->setFrame(QRectF(x, y, dotSide, dotSide));
        x += dotSide + dotGap;
    }
}
