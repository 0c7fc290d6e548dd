#pragma once

#include <QString>

#include <vector>

/// What a process holds at one time.
struct SoakSample
{
    qint64 residentKib = 0;
    qsizetype files = 0;
    qsizetype threads = 0;
    qsizetype timers = 0;
    qsizetype widgets = 0;

    /// The least of each within half a second, since connections and threads end a little late.
    [[nodiscard]] static SoakSample settled();
    [[nodiscard]] QString text() const;
};

/// Compares the first half of what it was given with the last.
class SoakMeter
{
public:
    void add(const SoakSample &sample) { m_samples.push_back(sample); }
    /// What has grown, null where nothing has: memory by more than 1 MiB within the last half, anything else
    /// beyond the most of the first half.
    [[nodiscard]] QString growth() const;

private:
    std::vector<SoakSample> m_samples;
};
