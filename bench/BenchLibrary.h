#pragma once

#include "BenchChild.h"

class BenchReport;

/// How large the library is, stripped and without its artwork.
void benchLibrary(const BenchSetting &setting, BenchReport &report);
