#include "BenchReport.h"

#include <QFile>
#include <QThread>

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace {

QString processor()
{
    QFile file(QStringLiteral("/proc/cpuinfo"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("model name"))
            return QString::fromUtf8(line.mid(line.indexOf(':') + 1)).trimmed();
    }
    return {};
}

QString text(std::optional<double> value, const QString &unit)
{
    if (!value)
        return {};
    const double size = std::abs(*value);
    const int decimals = size == 0 || size >= 100 ? 0 : size >= 10 ? 1 : 2;
    return QString::number(*value, 'f', decimals) + u' ' + unit;
}

void printLine(const QString &line)
{
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

} // namespace

void benchBegin(bool isShort)
{
    double load = 0;
    getloadavg(&load, 1);
    const QString length = isShort ? QStringLiteral(" A short run: proves only that it runs.") : QString();
    printLine(QStringLiteral("%1 cores (%2), Qt %3; load average %4 at the start.%5\n")
                  .arg(QString::number(QThread::idealThreadCount()), processor(), QLatin1String(qVersion()),
                       QString::number(load, 'f', 1), length));
    printLine(QStringLiteral("| what | ours | bare toolkit | to reach | met |"));
    printLine(QStringLiteral("| --- | --- | --- | --- | --- |"));
}

void benchTell(const BenchRow &row)
{
    const QString met = !row.atMost               ? QString()
                        : row.ours <= *row.atMost ? QStringLiteral("yes")
                                                  : QStringLiteral("**no**");
    printLine(QStringLiteral("| %1 | %2 | %3 | %4 | %5 |")
                  .arg(row.what, text(row.ours, row.unit), text(row.bare, row.unit),
                       text(row.atMost, row.unit), met));
}
