#pragma once

#include "layout/QVLayoutConstraint.h"

#include <QMargins>
#include <QRect>

#include <chrono>
#include <map>

/// The way from where widgets are seen to where they belong, slow at both ends.
///
/// It is kept as the distance that is left, not as a start, so that a place that changes under way
/// (the container is resized) is followed at once and still reached exactly.
class QVLayoutTransition
{
public:
    using ItemId = QVLayoutConstraint::ItemId;
    using Frames = std::map<ItemId, QRect>;
    using Time = std::chrono::nanoseconds;

    /// What now belongs elsewhere, at \a places instead of at \a formerPlaces, sets out from where it
    /// is seen. The rest is left alone, on its way or not, and what is new appears in place.
    void start(const Frames &seen, const Frames &formerPlaces, const Frames &places, Time duration);
    /// Moves on and forgets what has arrived.
    void advanceTo(Time now);
    void stop() { m_moves.clear(); }
    [[nodiscard]] bool isRunning() const { return !m_moves.empty(); }
    /// How long until everything has arrived.
    [[nodiscard]] Time remaining() const;
    /// Where something is seen that belongs at \a place.
    [[nodiscard]] QRect seen(ItemId item, const QRect &place) const;

private:
    struct Move
    {
        /// From the place to what was seen at the start, for each edge.
        QMargins distance;
        Time start;
        Time duration;
    };

    std::map<ItemId, Move> m_moves;
    Time m_now{};
};
