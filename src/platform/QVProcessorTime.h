#pragma once

#include <chrono>
#include <time.h>

/// How long the calling thread has computed so far, whatever else the machine had to do.
[[nodiscard]] inline std::chrono::nanoseconds qv_processorTime()
{
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}
