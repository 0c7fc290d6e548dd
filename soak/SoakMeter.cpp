#include "soak/SoakMeter.h"

#include "platform/QVScheduler.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTest>

#include <algorithm>
#include <malloc.h>

namespace {

constexpr std::array names{"KiB", "open files", "threads", "timers", "widgets"};
constexpr qint64 growthAllowedKib = 1024;

qint64 entriesOf(const QString &folder)
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

} // namespace

SoakMeter::Sample SoakMeter::sampleNow()
{
    // What was given back counts as given back, though the heap would keep it for later.
    ::malloc_trim(0);
    return {residentKib(), entriesOf(QStringLiteral("/proc/self/fd")),
            entriesOf(QStringLiteral("/proc/self/task")), QVScheduler::shared().pendingCount(),
            QApplication::allWidgets().size()};
}

QString SoakMeter::look()
{
    // The least of each within half a second, since connections and threads end a little late.
    constexpr int looks = 10;
    constexpr int betweenMilliseconds = 50;
    Sample least = sampleNow();
    for (int look = 1; look < looks; ++look) {
        QTest::qWait(betweenMilliseconds);
        std::ranges::transform(least, sampleNow(), least.begin(), std::ranges::min);
    }
    m_samples.push_back(least);
    QStringList texts;
    for (std::size_t i = 0; i < names.size(); ++i)
        texts.append(QStringLiteral("%1 %2").arg(least[i]).arg(QLatin1String(names[i])));
    return texts.join(QStringLiteral(", "));
}

QString SoakMeter::growth() const
{
    const auto middle = m_samples.begin() + std::ptrdiff_t(m_samples.size() / 2);
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto most = [i](auto first, auto last) {
            return (*std::max_element(first, last,
                                      [i](const Sample &a, const Sample &b) { return a[i] < b[i]; }))[i];
        };
        const qint64 allowed = i == 0 ? (*middle)[i] + growthAllowedKib : most(m_samples.begin(), middle);
        const qint64 grown = most(middle, m_samples.end()) - allowed;
        if (grown > 0)
            return QStringLiteral("%1 %2 too many").arg(grown).arg(QLatin1String(names[i]));
    }
    return {};
}
