#pragma once

#include "BenchChild.h"

class BenchReport;

/// Figures measured within one process each.
void benchParts(const BenchSetting &setting, BenchReport &report);
