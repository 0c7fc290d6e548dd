#pragma once

/// Measures how long the main thread is busy between two waits for events. Only one probe may exist at a
/// time.
class StallProbe
{
public:
    StallProbe();
    ~StallProbe();
    StallProbe(const StallProbe &) = delete;
    StallProbe &operator=(const StallProbe &) = delete;

    /// The time from here to the next wait, and while the probe is paused, does not count.
    void pause();
    void resume();
    /// The longest busy time, in milliseconds.
    [[nodiscard]] double longest() const;
    /// The number of busy times of more than 4 ms.
    [[nodiscard]] int many() const;
};
