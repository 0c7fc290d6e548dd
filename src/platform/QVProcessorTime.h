#pragma once

#include <chrono>
#include <time.h>

/// The processor time that the calling thread has used so far.
[[nodiscard]] inline std::chrono::nanoseconds qv_processorTime()
{
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}
