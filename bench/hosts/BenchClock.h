#pragma once

#include <chrono>

/// Milliseconds on a clock that is the same in all processes.
[[nodiscard]] inline double benchNow()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}
