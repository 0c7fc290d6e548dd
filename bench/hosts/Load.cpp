#include "BenchClock.h"

#include <cstdio>
#include <cstdlib>

/// Tells how long it took from the moment given, just before the process was started, to here.
int main(int argc, char *argv[])
{
    const double now = benchNow();
    const double start = argc > 1 ? std::strtod(argv[1], nullptr) : now;
    std::printf("{\"load\": %.6f}\n", now - start);
    return 0;
}
