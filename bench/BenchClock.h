#pragma once

#include <vector>

/// Milliseconds on the clock that all processes share.
[[nodiscard]] double benchNow();
/// MiB of memory that this process has to itself, with its share of what it has in common with others.
[[nodiscard]] double benchMemory();
[[nodiscard]] double benchMedian(std::vector<double> values);
