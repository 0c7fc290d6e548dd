#include "layers/QVAnimationStack.h"

#include "layers/QVMotion.h"

#include <algorithm>

namespace {

using Seconds = std::chrono::duration<double>;

} // namespace

void QVAnimationStack::add(const QVAnimation &animation, Time time)
{
    std::optional<Time> end;
    if (const std::optional<double> seconds = animation.end())
        end = QVMotion::isReduced() ? time : time + std::chrono::round<Time>(Seconds(*seconds));
    m_entries.push_back({animation, time, end, !end && QVMotion::isReduced()});
}

void QVAnimationStack::finish(Time time)
{
    std::erase_if(m_entries, [time](const Entry &entry) { return entry.end && time >= *entry.end; });
}

bool QVAnimationStack::isRunning() const
{
    return std::ranges::any_of(m_entries, [](const Entry &entry) { return !entry.isStill; });
}

std::optional<QVAnimationStack::Time> QVAnimationStack::nextEnd() const
{
    std::optional<Time> result;
    for (const Entry &entry : m_entries) {
        if (entry.end && (!result || *entry.end < *result))
            result = entry.end;
    }
    return result;
}

QVLayerProperties QVAnimationStack::presented(const QVLayerProperties &model, Time time) const
{
    QVLayerProperties result = model;
    for (const Entry &entry : m_entries) {
        if (!entry.isStill && (!entry.end || time < *entry.end))
            entry.animation.apply(Seconds(time - entry.start).count(), model, result);
    }
    return result;
}
