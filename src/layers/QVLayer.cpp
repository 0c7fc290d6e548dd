#include "layers/QVLayer.h"

#include "layers/QVPathGeometry.h"
#include "layers/QVTicker.h"

#include <algorithm>
#include <utility>

namespace {

QRectF ownRect(const QVLayer &layer)
{
    QRectF rect;
    if (layer.backgroundColor().isValid() || !layer.contents().isNull())
        rect = layer.presentedBounds();
    if (layer.fillColor().isValid())
        rect |= layer.presented().path.controlPointRect();
    if (layer.strokeColor().isValid() && !layer.strokePath().isEmpty()) {
        const qreal margin = layer.lineWidth() / 2;
        rect |= layer.strokePath().controlPointRect().adjusted(-margin, -margin, margin, margin);
    }
    return rect;
}

/// The rectangle of a layer and its sublayers, in the superlayer's coordinates.
QRectF treeRect(const QVLayer &layer)
{
    QRectF rect = ownRect(layer);
    for (const auto &sublayer : layer.sublayers())
        rect |= treeRect(*sublayer);
    return layer.presented().transform().mapRect(rect);
}

} // namespace

QVLayer::~QVLayer()
{
    for (const auto &layer : m_sublayers)
        layer->m_superlayer = nullptr;
}

void QVLayer::setContents(const QPixmap &contents)
{
    m_contents = contents;
    invalidate();
}

void QVLayer::addSublayer(const std::shared_ptr<QVLayer> &layer)
{
    for (const QVLayer *above = this; above; above = above->m_superlayer) {
        if (above == layer.get())
            return;
    }
    layer->removeFromSuperlayer();
    layer->m_superlayer = this;
    m_sublayers.push_back(layer);
    layer->invalidate();
    layer->animationsChanged();
}

void QVLayer::removeFromSuperlayer()
{
    if (!m_superlayer)
        return;
    invalidate();
    QVLayerContext *shownIn = context();
    auto &siblings = std::exchange(m_superlayer, nullptr)->m_sublayers;
    const auto found = std::ranges::find(siblings, this, &std::shared_ptr<QVLayer>::get);
    // The superlayer may be the last owner of this.
    const std::shared_ptr<QVLayer> self = std::move(*found);
    siblings.erase(found);
    if (shownIn)
        shownIn->animationsChanged();
}

void QVLayer::removeSublayers()
{
    while (!m_sublayers.empty())
        m_sublayers.back()->removeFromSuperlayer();
}

void QVLayer::addAnimation(const QVAnimation &animation)
{
    const Time now = QVTicker::shared().time();
    invalidate();
    m_animations.add(animation, now);
    m_time = std::max(m_time, now);
    update();
    invalidate();
    animationsChanged();
}

void QVLayer::removeAllAnimations()
{
    invalidate();
    m_animations.removeAll();
    update();
    invalidate();
    animationsChanged();
}

bool QVLayer::present(Time time)
{
    m_time = time;
    m_animations.finish(time);
    return update();
}

QVLayerContext *QVLayer::context() const
{
    const QVLayer *root = this;
    while (root->m_superlayer)
        root = root->m_superlayer;
    return root->m_context;
}

bool QVLayer::update()
{
    QVLayerProperties next = m_animations.presented(m_model, m_time);
    if (next == m_presented)
        return false;
    const bool strokeChanged = next.path != m_presented.path || next.strokeStart != m_presented.strokeStart ||
                               next.strokeEnd != m_presented.strokeEnd;
    m_presented = std::move(next);
    if (strokeChanged)
        m_strokePath = qv_trimmedPath(m_presented.path, m_presented.strokeStart, m_presented.strokeEnd);
    return true;
}

QRectF QVLayer::rectInRoot() const
{
    QRectF rect = treeRect(*this);
    for (const QVLayer *above = m_superlayer; above; above = above->m_superlayer)
        rect = above->m_presented.transform().mapRect(rect);
    return rect;
}

void QVLayer::invalidate() const
{
    if (QVLayerContext *shownIn = context())
        shownIn->invalidate(rectInRoot());
}

void QVLayer::animationsChanged()
{
    if (QVLayerContext *shownIn = context())
        shownIn->animationsChanged();
}
