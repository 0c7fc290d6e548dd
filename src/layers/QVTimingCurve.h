#pragma once

#include <QPointF>

/// How far an effect has come for a part of its time gone by: a cubic Bézier from (0, 0) to (1, 1).
class QVTimingCurve
{
public:
    constexpr QVTimingCurve() = default;
    /// \a first and \a second are the inner control points; their x lies in 0 … 1.
    constexpr QVTimingCurve(QPointF first, QPointF second)
        : m_first(first)
        , m_second(second)
        , m_linear(false)
    {
    }

    [[nodiscard]] static constexpr QVTimingCurve linear() { return {}; }
    [[nodiscard]] static constexpr QVTimingCurve easeIn() { return {{0.42, 0}, {1, 1}}; }
    [[nodiscard]] static constexpr QVTimingCurve easeOut() { return {{0, 0}, {0.58, 1}}; }
    [[nodiscard]] static constexpr QVTimingCurve easeInEaseOut() { return {{0.42, 0}, {0.58, 1}}; }

    /// \a progress outside 0 … 1 counts as the nearer end.
    [[nodiscard]] double valueAt(double progress) const;

private:
    QPointF m_first;
    QPointF m_second;
    bool m_linear = true;
};
