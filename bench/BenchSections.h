#pragma once

#include <QString>

class BenchDesktop;

/// The settings for all sections.
struct BenchSetting
{
    bool isShort = false;
    /// The folder with the programs of the hosts.
    QString folder;
    const BenchDesktop &desktop;

    /// The number of repetitions: \a whole, or 1 in a short run.
    [[nodiscard]] int rounds(int whole) const { return isShort ? 1 : whole; }
};

void benchStart(const BenchSetting &setting);
void benchPanel(const BenchSetting &setting);
void benchClick(const BenchSetting &setting);
void benchStroke(const BenchSetting &setting);
void benchStalls(const BenchSetting &setting);
void benchFrames(const BenchSetting &setting);
void benchIdle(const BenchSetting &setting);
void benchMemoryInUse(const BenchSetting &setting);
void benchSize(const BenchSetting &setting);
