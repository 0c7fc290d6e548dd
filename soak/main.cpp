#include "soak/SoakMeter.h"
#include "soak/SoakRun.h"

#include <QApplication>
#include <QStandardPaths>

#include <cstdio>
#include <malloc.h>

namespace {

constexpr int exitGrown = 1;
constexpr int exitBadInput = 2;
constexpr int parts = 10;

int soak(int count)
{
    SoakRun run;
    SoakMeter meter;
    QString problem;
    for (int part = 1; part <= parts; ++part) {
        for (int number = count * (part - 1) / parts; number < count * part / parts; ++number) {
            if (!run.verify(number, problem)) {
                std::fprintf(stderr, "quarvo-soak: %s\n", qUtf8Printable(problem));
                return exitGrown;
            }
        }
        const SoakSample sample = SoakSample::now();
        meter.add(sample);
        std::printf("%d verifications: %s\n", count * part / parts, qUtf8Printable(sample.text()));
        std::fflush(stdout);
    }
    problem = meter.fault();
    std::printf("%s\n", problem.isNull() ? "flat" : qUtf8Printable(problem));
    return problem.isNull() ? 0 : exitGrown;
}

} // namespace

/// Runs so many whole verifications in one process, and tells whether anything grows.
int main(int argc, char *argv[])
{
    // The free end of any other arena is not given back, and comes and goes with the order of threads.
    ::mallopt(M_ARENA_MAX, 1);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    QApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    const int count = QApplication::arguments().value(1).toInt();
    if (count < parts) {
        std::fprintf(stderr, "usage: quarvo-soak COUNT (at least %d)\n", parts);
        return exitBadInput;
    }
    return soak(count);
}
