#include "layers/QVAnimation.h"

#include <cmath>
#include <utility>

QVAnimation QVAnimation::basic(QVLayerProperty property, std::optional<QVLayerValue> from, QVLayerValue to)
{
    QVAnimation result;
    result.m_property = property;
    result.m_startsAtModel = !from;
    if (from)
        result.m_values.push_back(*std::move(from));
    result.m_values.push_back(std::move(to));
    return result;
}

QVAnimation QVAnimation::keyFrames(QVLayerProperty property, std::vector<QVLayerValue> values,
                                   std::vector<double> keyTimes)
{
    QVAnimation result;
    result.m_property = property;
    result.m_values = std::move(values);
    if (keyTimes.size() == result.m_values.size())
        result.m_keyTimes = std::move(keyTimes);
    return result;
}

QVAnimation QVAnimation::group(std::vector<QVAnimation> animations)
{
    QVAnimation result;
    result.m_children = std::move(animations);
    return result;
}

std::optional<double> QVAnimation::end() const
{
    if (m_repeatsForever && m_duration > 0)
        return std::nullopt;
    return m_beginTime + m_duration;
}

void QVAnimation::apply(double time, const QVLayerProperties &model, QVLayerProperties &presented) const
{
    const std::optional<double> last = end();
    if (time < m_beginTime || (last && time >= *last))
        return;
    const double rounds = (time - m_beginTime) / m_duration;
    const double progress = m_curve.valueForProgress(rounds - std::floor(rounds));
    for (const QVAnimation &child : m_children)
        child.apply(progress * m_duration, model, presented);
    if (!m_values.empty())
        present(progress, model, presented);
}

void QVAnimation::present(double progress, const QVLayerProperties &model, QVLayerProperties &presented) const
{
    presented.setValue(m_property, m_startsAtModel
                                       ? qv_blendedValue(model.value(m_property), m_values.front(), progress)
                                       : valueAt(progress));
}

QVLayerValue QVAnimation::valueAt(double progress) const
{
    std::size_t next = 0;
    while (next < m_values.size() && keyTime(next) <= progress)
        ++next;
    if (next == 0)
        return m_values.front();
    if (next == m_values.size())
        return m_values.back();
    const double from = keyTime(next - 1);
    return qv_blendedValue(m_values[next - 1], m_values[next], (progress - from) / (keyTime(next) - from));
}

double QVAnimation::keyTime(std::size_t index) const
{
    if (!m_keyTimes.empty())
        return m_keyTimes[index];
    return m_values.size() < 2 ? 0 : double(index) / double(m_values.size() - 1);
}
