#include "BenchClock.h"

#include <QFile>

#include <ctime>

namespace {

double read(clockid_t clock)
{
    constexpr double nanosecondsPerSecond = 1e9;
    timespec time{};
    clock_gettime(clock, &time);
    return double(time.tv_sec) * nanosecondsPerSecond + double(time.tv_nsec);
}

} // namespace

double benchNow()
{
    return read(CLOCK_MONOTONIC);
}

double benchCpuNow()
{
    return read(CLOCK_PROCESS_CPUTIME_ID);
}

double benchMemory(const char *field)
{
    constexpr double kibPerMib = 1024;
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith(QByteArray(field) + ':'))
            return line.mid(line.indexOf(':') + 1).replace("kB", "").trimmed().toDouble() / kibPerMib;
    }
    return 0;
}

double benchMedian(std::vector<double> values)
{
    if (values.empty())
        return 0;
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}
