#include "layers/QVLayerProperties.h"

#include "layers/QVPathGeometry.h"

namespace {

qreal *number(QVLayerProperties &properties, QVLayerProperty property)
{
    switch (property) {
    case QVLayerProperty::Opacity:
        return &properties.opacity;
    case QVLayerProperty::StrokeStart:
        return &properties.strokeStart;
    case QVLayerProperty::StrokeEnd:
        return &properties.strokeEnd;
    case QVLayerProperty::Rotation:
        return &properties.rotation;
    case QVLayerProperty::Scale:
        return &properties.scale;
    case QVLayerProperty::Frame:
    case QVLayerProperty::Path:
        break;
    }
    return nullptr;
}

qreal blended(qreal from, qreal to, qreal progress)
{
    return from + (to - from) * progress;
}

QRectF blended(const QRectF &from, const QRectF &to, qreal progress)
{
    return {blended(from.x(), to.x(), progress), blended(from.y(), to.y(), progress),
            blended(from.width(), to.width(), progress), blended(from.height(), to.height(), progress)};
}

QPainterPath blended(const QPainterPath &from, const QPainterPath &to, qreal progress)
{
    return qv_blendedPath(from, to, progress);
}

} // namespace

QVLayerValue QVLayerProperties::value(QVLayerProperty property) const
{
    if (property == QVLayerProperty::Frame)
        return frame;
    if (property == QVLayerProperty::Path)
        return path;
    QVLayerProperties copy = *this;
    return *number(copy, property);
}

void QVLayerProperties::setValue(QVLayerProperty property, const QVLayerValue &value)
{
    if (const auto *newFrame = std::get_if<QRectF>(&value); newFrame && property == QVLayerProperty::Frame)
        frame = *newFrame;
    if (const auto *newPath = std::get_if<QPainterPath>(&value); newPath && property == QVLayerProperty::Path)
        path = *newPath;
    if (qreal *field = number(*this, property); field && std::holds_alternative<qreal>(value))
        *field = std::get<qreal>(value);
}

QTransform QVLayerProperties::transform() const
{
    if (rotation == 0 && scale == 1)
        return QTransform::fromTranslate(frame.x(), frame.y());
    QTransform result;
    result.translate(frame.center().x(), frame.center().y());
    result.rotateRadians(rotation);
    result.scale(scale, scale);
    result.translate(-frame.width() / 2, -frame.height() / 2);
    return result;
}

QVLayerValue qv_blendedValue(const QVLayerValue &from, const QVLayerValue &to, qreal progress)
{
    if (from.index() != to.index())
        return to;
    return std::visit(
        [&](const auto &start) -> QVLayerValue {
            return blended(start, std::get<std::decay_t<decltype(start)>>(to), progress);
        },
        from);
}
