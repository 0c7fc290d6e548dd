#pragma once

#include <QPainterPath>
#include <QRectF>
#include <QTransform>

#include <variant>

/// The properties of a layer that can be animated.
enum class QVLayerProperty { Frame, Path, Opacity, StrokeStart, StrokeEnd, Rotation, Scale };

using QVLayerValue = std::variant<qreal, QRectF, QPainterPath>;

/// The animatable values of a layer: either those set or those presented.
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
    /// Ignores a value that does not have the type of the property.
    void setValue(QVLayerProperty property, const QVLayerValue &value);
    /// From the layer's own coordinates to those of its superlayer, including rotation and scale.
    [[nodiscard]] QTransform transform() const;

    friend bool operator==(const QVLayerProperties &, const QVLayerProperties &) = default;
};

[[nodiscard]] QVLayerValue qv_blendedValue(const QVLayerValue &from, const QVLayerValue &to, qreal progress);
