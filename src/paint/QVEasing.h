#pragma once

#include <QEasingCurve>
#include <QPointF>

/// The platform's timing curves: cubic Béziers from (0, 0) to (1, 1).
namespace QVEasing {

[[nodiscard]] inline QEasingCurve bezier(QPointF first, QPointF second)
{
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment(first, second, {1, 1});
    return curve;
}

[[nodiscard]] inline QEasingCurve easeIn()
{
    return bezier({0.42, 0}, {1, 1});
}

[[nodiscard]] inline QEasingCurve easeOut()
{
    return bezier({0, 0}, {0.58, 1});
}

[[nodiscard]] inline QEasingCurve easeInEaseOut()
{
    return bezier({0.42, 0}, {0.58, 1});
}

/// The curve of the platform's animations that set none.
[[nodiscard]] inline QEasingCurve usual()
{
    return bezier({0.25, 0.1}, {0.25, 1});
}

} // namespace QVEasing
