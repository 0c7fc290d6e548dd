#pragma once

#include "layers/QVAnimation.h"

#include <chrono>

/// The animations of one layer, in the order in which they were added. A later one overrides earlier ones.
class QVAnimationStack
{
public:
    using Time = std::chrono::nanoseconds;

    void add(const QVAnimation &animation, Time time);
    void removeAll() { m_entries.clear(); }
    /// Removes the animations that have ended at \a time.
    void finish(Time time);

    /// Whether any animation has not ended and moves.
    [[nodiscard]] bool isRunning() const;
    /// The time of the next end of an animation; empty if there is none.
    [[nodiscard]] std::optional<Time> nextEnd() const;
    [[nodiscard]] QVLayerProperties presented(const QVLayerProperties &model, Time time) const;

private:
    struct Entry
    {
        QVAnimation animation;
        Time start;
        std::optional<Time> end;
        /// An endless animation that has no effect, since motion is reduced.
        bool isStill = false;
    };

    std::vector<Entry> m_entries;
};
