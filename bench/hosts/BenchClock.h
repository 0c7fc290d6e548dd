#pragma once

#include <vector>

/// Milliseconds on a clock that is the same in all processes.
[[nodiscard]] double benchNow();
/// The memory of this process in MiB. Pages that it shares with others count in part.
[[nodiscard]] double benchMemory();
[[nodiscard]] double benchMedian(std::vector<double> values);
