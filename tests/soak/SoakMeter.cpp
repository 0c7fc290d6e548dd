#include "soak/SoakMeter.h"

#include "platform/QVScheduler.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <malloc.h>

namespace {

constexpr qint64 growthAllowedKib = 1024;

qsizetype entriesOf(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System).size();
}

qint64 residentKib()
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = file.readAll();
    const QByteArray name = QByteArrayLiteral("VmRSS:");
    const qsizetype at = text.indexOf(name) + name.size();
    return text.mid(at, text.indexOf("kB", at) - at).trimmed().toLongLong();
}

} // namespace

SoakSample SoakSample::now()
{
    // What was given back counts as given back, though the heap would keep it for later.
    ::malloc_trim(0);
    SoakSample sample;
    sample.residentKib = ::residentKib();
    sample.files = entriesOf(QStringLiteral("/proc/self/fd"));
    sample.threads = entriesOf(QStringLiteral("/proc/self/task"));
    sample.timers = QVScheduler::shared().pendingCount();
    sample.widgets = QApplication::allWidgets().size();
    return sample;
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

QString SoakMeter::fault() const
{
    if (m_samples.size() < 2)
        return QStringLiteral("nothing to compare");
    const SoakSample &middle = m_samples[m_samples.size() / 2];
    const SoakSample &last = m_samples.back();
    if (last.residentKib > middle.residentKib + growthAllowedKib)
        return QStringLiteral("memory has grown by %1 KiB").arg(last.residentKib - middle.residentKib);
    if (last.files > middle.files)
        return QStringLiteral("open files have grown");
    if (last.threads > middle.threads)
        return QStringLiteral("threads have grown");
    if (last.timers > middle.timers)
        return QStringLiteral("timers have grown");
    return last.widgets > middle.widgets ? QStringLiteral("widgets have grown") : QString();
}
