#pragma once

#include "layers/QVAnimationStack.h"

#include <QColor>
#include <QPixmap>

#include <memory>

/// The place where a tree of layers is shown.
class QVLayerContext
{
public:
    virtual ~QVLayerContext() = default;

    /// The look has changed within \a rect, in the root layer's coordinates.
    virtual void invalidate(const QRectF &rect) = 0;
    /// Animations were added or removed somewhere in the tree.
    virtual void animationsChanged() = 0;

protected:
    QVLayerContext() = default;
    Q_DISABLE_COPY(QVLayerContext)
};

/// A retained drawing: a background, a picture, a filled and stroked path, and sublayers on top.
///
/// A setter changes a value at once. An animation changes only the presented value while it runs. Animations
/// of a layer that is not visible do not advance; they catch up when it is shown again.
class QVLayer
{
public:
    using Time = std::chrono::nanoseconds;

    QVLayer() = default;
    virtual ~QVLayer();
    Q_DISABLE_COPY(QVLayer)

    /// In the superlayer's coordinates, before rotation and scale. The origin of the layer's own coordinates
    /// is the frame's top left corner.
    [[nodiscard]] QRectF frame() const { return m_model.frame; }
    void setFrame(const QRectF &frame) { assign(m_model.frame, frame); }
    [[nodiscard]] QRectF bounds() const { return {QPointF(), m_model.frame.size()}; }
    [[nodiscard]] QPainterPath path() const { return m_model.path; }
    void setPath(const QPainterPath &path) { assign(m_model.path, path); }
    [[nodiscard]] qreal opacity() const { return m_model.opacity; }
    void setOpacity(qreal opacity) { assign(m_model.opacity, opacity); }
    /// The path is stroked between these fractions of its length. The fill is not affected.
    [[nodiscard]] qreal strokeStart() const { return m_model.strokeStart; }
    void setStrokeStart(qreal start) { assign(m_model.strokeStart, start); }
    [[nodiscard]] qreal strokeEnd() const { return m_model.strokeEnd; }
    void setStrokeEnd(qreal end) { assign(m_model.strokeEnd, end); }
    /// In radians, clockwise on screen. Rotation and scale have the frame's centre as their origin.
    [[nodiscard]] qreal rotation() const { return m_model.rotation; }
    void setRotation(qreal radians) { assign(m_model.rotation, radians); }
    [[nodiscard]] qreal scale() const { return m_model.scale; }
    void setScale(qreal scale) { assign(m_model.scale, scale); }

    /// An invalid colour draws nothing.
    [[nodiscard]] QColor backgroundColor() const { return m_backgroundColor; }
    void setBackgroundColor(const QColor &color) { assign(m_backgroundColor, color); }
    [[nodiscard]] QColor fillColor() const { return m_fillColor; }
    void setFillColor(const QColor &color) { assign(m_fillColor, color); }
    [[nodiscard]] QColor strokeColor() const { return m_strokeColor; }
    void setStrokeColor(const QColor &color) { assign(m_strokeColor, color); }
    [[nodiscard]] qreal lineWidth() const { return m_lineWidth; }
    void setLineWidth(qreal width) { assign(m_lineWidth, width); }
    /// Whether the ends of a stroke are round. Its corners always are.
    [[nodiscard]] bool hasRoundCaps() const { return m_hasRoundCaps; }
    void setRoundCaps(bool round) { assign(m_hasRoundCaps, round); }
    [[nodiscard]] qreal cornerRadius() const { return m_cornerRadius; }
    void setCornerRadius(qreal radius) { assign(m_cornerRadius, radius); }
    /// A picture scaled to fit into the bounds, centred.
    [[nodiscard]] const QPixmap &contents() const { return m_contents; }
    void setContents(const QPixmap &contents);
    /// The layer and its sublayers are clipped to this path, unless it is empty.
    [[nodiscard]] QPainterPath mask() const { return m_mask; }
    void setMask(const QPainterPath &mask) { assign(m_mask, mask); }

    void addSublayer(const std::shared_ptr<QVLayer> &layer);
    void removeFromSuperlayer();
    void removeSublayers();
    [[nodiscard]] const std::vector<std::shared_ptr<QVLayer>> &sublayers() const { return m_sublayers; }
    [[nodiscard]] QVLayer *superlayer() const { return m_superlayer; }

    void addAnimation(const QVAnimation &animation);
    void removeAllAnimations();
    [[nodiscard]] const QVAnimationStack &animations() const { return m_animations; }

    /// The values that the layer shows, as of the last call of present().
    [[nodiscard]] const QVLayerProperties &presented() const { return m_presented; }
    /// The part of the presented path that is stroked.
    [[nodiscard]] const QPainterPath &strokePath() const { return m_strokePath; }
    [[nodiscard]] QRectF presentedBounds() const { return {QPointF(), m_presented.frame.size()}; }
    /// The rectangle that the layer and its sublayers cover as presented, including the pen width, in the
    /// root layer's coordinates.
    [[nodiscard]] QRectF rectInRoot() const;
    /// Advances the animations to \a time and removes those that have ended. Returns whether the look has
    /// changed.
    bool present(Time time);

    /// For the root of a tree.
    void setContext(QVLayerContext *context) { m_context = context; }

private:
    template<class Value>
    void assign(Value &field, const Value &value)
    {
        if (field == value)
            return;
        invalidate();
        field = value;
        update();
        invalidate();
    }

    [[nodiscard]] QVLayerContext *context() const;
    bool update();
    void invalidate() const;
    void animationsChanged();

    QVLayer *m_superlayer = nullptr;
    QVLayerContext *m_context = nullptr;
    std::vector<std::shared_ptr<QVLayer>> m_sublayers;
    QVLayerProperties m_model;
    QVLayerProperties m_presented;
    QPainterPath m_strokePath;
    QVAnimationStack m_animations;
    Time m_time{};
    QColor m_backgroundColor;
    QColor m_fillColor;
    QColor m_strokeColor;
    qreal m_lineWidth = 1;
    bool m_hasRoundCaps = false;
    qreal m_cornerRadius = 0;
    QPixmap m_contents;
    QPainterPath m_mask;
};
