#include "hosts/BenchClock.h"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

/// Prints the time from the given moment, just before the process was started, to the start of main().
int main(int argc, char *argv[])
{
    const double now = benchNow();
    const double start = argc > 1 ? std::strtod(argv[1], nullptr) : now;
    std::printf("{\"load\": %.6f}\n", now - start);
    std::fflush(stdout);
    return ::pause();
}
