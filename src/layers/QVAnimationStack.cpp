#include "layers/QVAnimationStack.h"

#include "layers/QVMotion.h"

#include <algorithm>
#include <utility>

namespace {

using Seconds = std::chrono::duration<double>;

} // namespace

QVAnimationStack::StoppedList QVAnimationStack::add(QVAnimation animation, const QString &key, Time time)
{
    StoppedList replaced;
    if (!key.isEmpty())
        replaced = remove(key);
    std::optional<Time> end;
    if (const std::optional<double> seconds = animation.end())
        end = QVMotion::isReduced() ? time : time + std::chrono::round<Time>(Seconds(*seconds));
    const bool still = !end && QVMotion::isReduced();
    m_entries.push_back({key, std::move(animation), time, end, still});
    return replaced;
}

QVAnimationStack::StoppedList QVAnimationStack::remove(const QString &key)
{
    StoppedList stopped;
    std::erase_if(m_entries, [&](const Entry &entry) {
        if (entry.key != key)
            return false;
        if (!entry.over && entry.animation.stopped())
            stopped.push_back(entry.animation.stopped());
        return true;
    });
    return stopped;
}

QVAnimationStack::StoppedList QVAnimationStack::removeAll()
{
    StoppedList stopped;
    for (const Entry &entry : std::exchange(m_entries, {})) {
        if (!entry.over && entry.animation.stopped())
            stopped.push_back(entry.animation.stopped());
    }
    return stopped;
}

void QVAnimationStack::finish(Time time, StoppedList &ended)
{
    std::erase_if(m_entries, [&](Entry &entry) {
        if (entry.over || !entry.end || time < *entry.end)
            return false;
        entry.over = true;
        if (entry.animation.stopped())
            ended.push_back(entry.animation.stopped());
        return entry.animation.isRemovedOnCompletion();
    });
}

QStringList QVAnimationStack::keys() const
{
    QStringList result;
    for (const Entry &entry : m_entries)
        result.append(entry.key);
    return result;
}

bool QVAnimationStack::isRunning() const
{
    return std::ranges::any_of(m_entries, [](const Entry &entry) { return !entry.over; });
}

std::optional<QVAnimationStack::Time> QVAnimationStack::nextEnd() const
{
    std::optional<Time> result;
    for (const Entry &entry : m_entries) {
        if (!entry.over && entry.end && (!result || *entry.end < *result))
            result = entry.end;
    }
    return result;
}

QVLayerProperties QVAnimationStack::presented(const QVLayerProperties &model, Time time) const
{
    QVLayerProperties result = model;
    for (const Entry &entry : m_entries) {
        if (!entry.over && (!entry.end || time < *entry.end))
            entry.animation.apply(Seconds(time - entry.start).count(), model, result);
    }
    return result;
}
