#pragma once

#include "layers/QVAnimation.h"

#include <chrono>

/// The animations of one layer, in the order in which they were added; a later one wins.
class QVAnimationStack
{
public:
    using Time = std::chrono::nanoseconds;

    void add(const QVAnimation &animation, Time time);
    void removeAll() { m_entries.clear(); }
    /// Drops what is over at \a time.
    void finish(Time time);

    /// Whether anything is still to come.
    [[nodiscard]] bool isRunning() const;
    /// When the next of those that end will do so.
    [[nodiscard]] std::optional<Time> nextEnd() const;
    [[nodiscard]] QVLayerProperties presented(const QVLayerProperties &model, Time time) const;

private:
    struct Entry
    {
        QVAnimation animation;
        Time start;
        std::optional<Time> end;
        /// Endless, but not to move.
        bool isStill = false;
    };

    std::vector<Entry> m_entries;
};
