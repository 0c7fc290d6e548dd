#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

/// Nanoseconds on the clock that all processes share.
[[nodiscard]] double benchNow();
/// Nanoseconds of processor time that this process has used.
[[nodiscard]] double benchCpuNow();
/// MiB of memory that this process accounts for, by a field of /proc/self/smaps_rollup.
[[nodiscard]] double benchMemory(const char *field);
[[nodiscard]] double benchMedian(std::vector<double> values);

/// Ours, and the limit, as both came out of one run.
struct BenchPair
{
    double ours = 0;
    double limit = 0;
};

/// Medians of what the two functions return, called in turn: whatever else the machine does meanwhile
/// disturbs both alike. A first round only warms up.
template<class Ours, class Limit>
[[nodiscard]] BenchPair benchInTurn(int rounds, Ours ours, Limit limit)
{
    std::vector<double> ofOurs;
    std::vector<double> ofLimit;
    (void)ours();
    (void)limit();
    for (int round = 0; round < rounds; ++round) {
        ofOurs.push_back(ours());
        ofLimit.push_back(limit());
    }
    return {benchMedian(std::move(ofOurs)), benchMedian(std::move(ofLimit))};
}

/// Nanoseconds of processor time that one call takes, from as many calls as the clock needs.
template<class Call>
[[nodiscard]] double benchCostPerCall(Call call)
{
    constexpr double longEnough = 2e6;
    for (int count = 16;; count *= 4) {
        const double start = benchCpuNow();
        for (int i = 0; i < count; ++i)
            call();
        const double passed = benchCpuNow() - start;
        if (passed >= longEnough)
            return passed / count;
    }
}
