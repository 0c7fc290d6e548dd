#pragma once

#include <QString>

#include <array>
#include <vector>

/// Looks at what the process holds, and compares the first half of what it saw with the last.
class SoakMeter
{
public:
    /// Looks once more; gives what there is in words.
    QString look();
    /// What has grown, null where nothing has: memory by more than 1 MiB within the last half, anything else
    /// beyond the most of the first half.
    [[nodiscard]] QString growth() const;

private:
    /// Memory in KiB, open files, threads, timers, widgets.
    using Sample = std::array<qint64, 5>;

    [[nodiscard]] static Sample sampleNow();

    std::vector<Sample> m_samples;
};
