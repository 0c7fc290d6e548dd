#include "layout/QVLayoutTransition.h"

#include "paint/QVEasing.h"

#include <algorithm>

void QVLayoutTransition::start(const Frames &seen, const Frames &formerPlaces, const Frames &places,
                               Time duration)
{
    for (const auto &[item, place] : places) {
        const auto former = formerPlaces.find(item);
        const auto found = seen.find(item);
        if (former == formerPlaces.end() || found == seen.end() || former->second == place)
            continue;
        const QRect &from = found->second;
        m_moves[item] = {{from.left() - place.left(), from.top() - place.top(), from.right() - place.right(),
                          from.bottom() - place.bottom()},
                         m_now,
                         duration};
    }
}

void QVLayoutTransition::advanceTo(Time now)
{
    m_now = now;
    std::erase_if(m_moves,
                  [now](const auto &entry) { return now >= entry.second.start + entry.second.duration; });
}

QVLayoutTransition::Time QVLayoutTransition::remaining() const
{
    Time end = m_now;
    for (const auto &[item, move] : m_moves)
        end = std::max(end, move.start + move.duration);
    return end - m_now;
}

QRect QVLayoutTransition::seen(ItemId item, const QRect &place) const
{
    const auto found = m_moves.find(item);
    if (found == m_moves.end())
        return place;
    const auto &[distance, start, duration] = found->second;
    const double progress = double((m_now - start).count()) / double(duration.count());
    const double left = 1 - QVEasing::easeInEaseOut().valueForProgress(progress);
    return place.adjusted(qRound(distance.left() * left), qRound(distance.top() * left),
                          qRound(distance.right() * left), qRound(distance.bottom() * left));
}
