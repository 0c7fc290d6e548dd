#include "examples/QuietPlatform.h"
#include "soak/SoakMeter.h"
#include "soak/SoakRun.h"

#include <QApplication>
#include <QStandardPaths>

#include <cstdio>
#include <malloc.h>

namespace {

constexpr int exitFailed = 1;
constexpr int exitBadInput = 2;
constexpr int parts = 10;

/// Verifies from one number up to another, and looks at what the process holds after each part.
bool measure(int from, int to, SoakRun &run, SoakMeter &meter)
{
    const int count = to - from;
    for (int part = 1; part <= parts; ++part) {
        const int end = from + count * part / parts;
        for (int number = from + count * (part - 1) / parts; number < end; ++number) {
            if (QString problem; !run.verify(number, problem)) {
                std::fprintf(stderr, "quarvo-soak: %s\n", qUtf8Printable(problem));
                return false;
            }
        }
        std::printf("%d verifications: %s\n", end, qUtf8Printable(meter.look()));
        std::fflush(stdout);
    }
    return true;
}

/// A pool of threads or connections grows when it first has that much to do at a time, however late that is,
/// and then no more. So what has grown is watched for as long again: a leak is what grows then, too.
int soak(int count)
{
    SoakRun run;
    SoakMeter meter;
    for (const int from : {0, count}) {
        if (!measure(from, from + count, run, meter))
            return exitFailed;
        const QString growth = meter.growth();
        std::printf("%s\n", growth.isNull() ? "flat" : qUtf8Printable(growth));
        if (growth.isNull())
            return 0;
    }
    return exitFailed;
}

} // namespace

/// Runs so many whole verifications in one process, and tells whether anything grows.
int main(int argc, char *argv[])
{
    // The free end of any other arena is not given back, and comes and goes with the order of threads.
    ::mallopt(M_ARENA_MAX, 1);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    quietPlatform();
    QApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    const int count = QApplication::arguments().value(1).toInt();
    if (count < parts) {
        std::fprintf(stderr, "usage: quarvo-soak COUNT (at least %d)\n", parts);
        return exitBadInput;
    }
    return soak(count);
}
