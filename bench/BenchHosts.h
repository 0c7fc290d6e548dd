#pragma once

#include "BenchChild.h"

class BenchReport;

// Figures of whole programs, each started anew.

/// From main to the picture of an embedded panel.
void benchPanel(const BenchSetting &setting, BenchReport &report);
/// From a tap to its token.
void benchClick(const BenchSetting &setting, BenchReport &report);
/// What a panel adds to a host in memory.
void benchMemoryAdded(const BenchSetting &setting, BenchReport &report);
/// What loading the library adds to a host's start.
void benchLoading(const BenchSetting &setting, BenchReport &report);
