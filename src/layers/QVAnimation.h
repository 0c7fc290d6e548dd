#pragma once

#include "layers/QVLayerProperties.h"

#include <QEasingCurve>

#include <optional>
#include <vector>

/// A description of how a layer's presented values change over time; the values set stay as they are.
///
/// Before it begins and after it ends an animation shows nothing. Times are in seconds.
class QVAnimation
{
public:
    /// From one value to another; without \a from, from the value set on the layer.
    [[nodiscard]] static QVAnimation basic(QVLayerProperty property, std::optional<QVLayerValue> from,
                                           QVLayerValue to);
    /// Through all values. \a keyTimes are fractions of the duration, one for each value; otherwise
    /// the values are evenly spaced.
    [[nodiscard]] static QVAnimation keyFrames(QVLayerProperty property, std::vector<QVLayerValue> values,
                                               std::vector<double> keyTimes = {});
    /// Runs \a animations together; its own duration cuts off those that last longer.
    [[nodiscard]] static QVAnimation group(std::vector<QVAnimation> animations);

    void setDuration(double seconds) { m_duration = seconds; }
    /// When it begins, counted from when it is added.
    void setBeginTime(double seconds) { m_beginTime = seconds; }
    void setRepeatsForever() { m_repeatsForever = true; }
    void setTimingCurve(const QEasingCurve &curve) { m_curve = curve; }

    /// When it ends, counted from when it is added; none if it never does.
    [[nodiscard]] std::optional<double> end() const;
    /// Writes into \a presented what the animation shows \a time after it was added.
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
