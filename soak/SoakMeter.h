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

    [[nodiscard]] static SoakSample now();
    [[nodiscard]] QString text() const;
};

/// Judges whether a process has stopped growing.
class SoakMeter
{
public:
    void add(const SoakSample &sample) { m_samples.push_back(sample); }
    /// Why the curve is not flat, null where it is: within the last half memory has grown by more than
    /// 1 MiB, or anything else beyond what the first half had seen.
    [[nodiscard]] QString fault() const;

private:
    std::vector<SoakSample> m_samples;
};
