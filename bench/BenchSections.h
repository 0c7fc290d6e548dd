#pragma once

#include <QString>

class BenchDesktop;

/// What every section is given.
struct BenchSetting
{
    bool isShort = false;
    /// The folder of the hosts' programs.
    QString folder;
    const BenchDesktop &desktop;

    /// How often something is repeated.
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
