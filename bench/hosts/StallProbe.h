#pragma once

/// Watches for how long the thread of main() at a time does not wait for events. One at a time.
class StallProbe
{
public:
    StallProbe();
    ~StallProbe();
    StallProbe(const StallProbe &) = delete;
    StallProbe &operator=(const StallProbe &) = delete;

    /// What goes on from here to the next wait, and while it is paused, is the program's own.
    void pause();
    void resume();
    /// Milliseconds of the longest.
    [[nodiscard]] double longest() const;
    /// How many took longer than 4 ms.
    [[nodiscard]] int many() const;
};
