#pragma once

#include <QPainterPath>
#include <QRectF>
#include <QTransform>

#include <variant>

/// What of a layer can be animated.
enum class QVLayerProperty { Frame, Path, Opacity, StrokeStart, StrokeEnd, Rotation, Scale };

using QVLayerValue = std::variant<qreal, QRectF, QPainterPath>;

/// The animatable values of a layer, as set or as presented.
struct QVLayerProperties
{
    QRectF frame;
    QPainterPath path;
    qreal opacity = 1;
    qreal strokeStart = 0;
    qreal strokeEnd = 1;
    qreal rotation = 0;
    qreal scale = 1;

    [[nodiscard]] QVLayerValue value(QVLayerProperty property) const;
    /// A value of another kind than the property's changes nothing.
    void setValue(QVLayerProperty property, const QVLayerValue &value);
    /// From the layer's own coordinates to its superlayer's: turned and scaled about the frame's centre.
    [[nodiscard]] QTransform transform() const;

    friend bool operator==(const QVLayerProperties &, const QVLayerProperties &) = default;
};

[[nodiscard]] QVLayerValue qv_blendedValue(const QVLayerValue &from, const QVLayerValue &to, qreal progress);
