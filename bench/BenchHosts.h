#pragma once

#include "BenchChild.h"

class BenchReport;

/// Figures of whole programs, each started anew: the panel from main to its picture, what it adds in
/// memory, a click, and loading the library.
void benchHosts(const BenchSetting &setting, BenchReport &report);
