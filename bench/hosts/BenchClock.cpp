#include "hosts/BenchClock.h"

#include <QFile>

#include <algorithm>
#include <chrono>

double benchNow()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

double benchMemory()
{
    constexpr double kibPerMib = 1024;
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("Pss:"))
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
