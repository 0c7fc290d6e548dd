#pragma once

#include "layers/QVLayerProperties.h"

#include <QEasingCurve>

#include <optional>
#include <vector>

/// Describes how the presented values of a layer change over time. The values that were set stay unchanged.
///
/// An animation has no effect before it begins and after it ends. Times are in seconds.
class QVAnimation
{
public:
    /// From one value to another. Without \a from it starts at the value set on the layer.
    [[nodiscard]] static QVAnimation basic(QVLayerProperty property, std::optional<QVLayerValue> from,
                                           QVLayerValue to);
    /// Through all \a values. \a keyTimes are fractions of the duration, one for each value. Without them the
    /// values are evenly spaced.
    [[nodiscard]] static QVAnimation keyFrames(QVLayerProperty property, std::vector<QVLayerValue> values,
                                               std::vector<double> keyTimes = {});
    /// Runs \a animations together. The duration of the group cuts off those that last longer.
    [[nodiscard]] static QVAnimation group(std::vector<QVAnimation> animations);

    void setDuration(double seconds) { m_duration = seconds; }
    /// The delay between adding the animation and its begin.
    void setBeginTime(double seconds) { m_beginTime = seconds; }
    void setRepeatsForever() { m_repeatsForever = true; }
    void setTimingCurve(const QEasingCurve &curve) { m_curve = curve; }

    /// The time from adding the animation to its end; empty if it never ends.
    [[nodiscard]] std::optional<double> end() const;
    /// Writes the values into \a presented that the animation shows \a time seconds after it was added.
    void apply(double time, const QVLayerProperties &model, QVLayerProperties &presented) const;

private:
    QVAnimation() = default;

    void present(double progress, const QVLayerProperties &model, QVLayerProperties &presented) const;
    [[nodiscard]] QVLayerValue valueAt(double progress) const;
    [[nodiscard]] double keyTime(std::size_t index) const;

    QVLayerProperty m_property = QVLayerProperty::Opacity;
    bool m_startsAtModel = false;
    bool m_repeatsForever = false;
    std::vector<QVLayerValue> m_values;
    std::vector<double> m_keyTimes;
    std::vector<QVAnimation> m_children;
    double m_duration = 0.25;
    double m_beginTime = 0;
    QEasingCurve m_curve;
};
