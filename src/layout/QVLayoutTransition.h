#pragma once

#include "layout/QVLayoutConstraint.h"

#include <QMargins>
#include <QRect>

#include <chrono>
#include <map>

/// Moves widgets from where they are to their final places, slow at both ends.
///
/// A move is stored as the distance to the final place, not as its start. So, if the final place changes
/// meanwhile (the container is resized), the widget follows at once and still arrives exactly.
class QVLayoutTransition
{
public:
    using ItemId = QVLayoutConstraint::ItemId;
    using Frames = std::map<ItemId, QRect>;
    using Time = std::chrono::nanoseconds;

    /// Starts a move for each widget whose final place in \a places differs from that in \a formerPlaces. It
    /// begins at the frame in \a seen. Other moves under way go on. New widgets appear at their places.
    void start(const Frames &seen, const Frames &formerPlaces, const Frames &places, Time duration);
    /// Sets the time, and removes the moves that have ended.
    void advanceTo(Time now);
    void stop() { m_moves.clear(); }
    [[nodiscard]] bool isRunning() const { return !m_moves.empty(); }
    /// The time until the last move ends.
    [[nodiscard]] Time remaining() const;
    /// The current frame of an item whose final place is \a place.
    [[nodiscard]] QRect seen(ItemId item, const QRect &place) const;

private:
    struct Move
    {
        /// The distance of each edge from the final place, at the start.
        QMargins distance;
        Time start;
        Time duration;
    };

    std::map<ItemId, Move> m_moves;
    Time m_now{};
};
