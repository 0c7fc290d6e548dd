#include "soak/SoakMeter.h"

#include "platform/QVScheduler.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTest>

#include <algorithm>
#include <malloc.h>
#include <span>

namespace {

constexpr qint64 growthAllowedKib = 1024;

constexpr std::pair<qsizetype SoakSample::*, const char *> counts[] = {
    {&SoakSample::files, "open files"},
    {&SoakSample::threads, "threads"},
    {&SoakSample::timers, "timers"},
    {&SoakSample::widgets, "widgets"},
};

qsizetype entriesOf(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System).size();
}

// VmRSS of /proc/self/status is off by some hundred pages: each thread counts its own and hands in the sum
// late.
qint64 residentKib()
{
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const QByteArray name = QByteArrayLiteral("\nRss:");
    const qsizetype at = text.indexOf(name) + name.size();
    const qint64 kib = text.mid(at, text.indexOf("kB", at) - at).trimmed().toLongLong();
    if (kib <= 0)
        qFatal("this system does not tell what a process holds in memory");
    return kib;
}

SoakSample sampleNow()
{
    // What was given back counts as given back, though the heap would keep it for later.
    ::malloc_trim(0);
    SoakSample sample;
    sample.residentKib = residentKib();
    sample.files = entriesOf(QStringLiteral("/proc/self/fd"));
    sample.threads = entriesOf(QStringLiteral("/proc/self/task"));
    sample.timers = QVScheduler::shared().pendingCount();
    sample.widgets = QApplication::allWidgets().size();
    return sample;
}

template<class Number>
Number largest(std::span<const SoakSample> samples, Number SoakSample::*field)
{
    return std::ranges::max(samples, {}, field).*field;
}

} // namespace

SoakSample SoakSample::settled()
{
    constexpr int looks = 10;
    constexpr int betweenMilliseconds = 50;
    SoakSample least = sampleNow();
    for (int look = 1; look < looks; ++look) {
        QTest::qWait(betweenMilliseconds);
        const SoakSample sample = sampleNow();
        least.residentKib = std::min(least.residentKib, sample.residentKib);
        for (const auto &[count, name] : counts)
            least.*count = std::min(least.*count, sample.*count);
    }
    return least;
}

QString SoakSample::text() const
{
    return QStringLiteral("%1 KiB, %2 files, %3 threads, %4 timers, %5 widgets")
        .arg(residentKib)
        .arg(files)
        .arg(threads)
        .arg(timers)
        .arg(widgets);
}

QString SoakMeter::growth() const
{
    const auto middle = m_samples.begin() + static_cast<std::ptrdiff_t>(m_samples.size() / 2);
    const std::span firstHalf(m_samples.begin(), middle);
    const std::span lastHalf(middle, m_samples.end());
    if (firstHalf.empty())
        return QStringLiteral("nothing to compare");
    const qint64 growth = largest(lastHalf, &SoakSample::residentKib) - lastHalf.front().residentKib;
    if (growth > growthAllowedKib)
        return QStringLiteral("memory has grown by %1 KiB").arg(growth);
    for (const auto &[count, name] : counts) {
        if (largest(lastHalf, count) > largest(firstHalf, count))
            return QLatin1String(name) + QStringLiteral(" have grown");
    }
    return {};
}
