#include "examples/QuietPlatform.h"
#include "modes/ModesTestCase.h"
#include "platform/QVScheduler.h"

#include <QApplication>
#include <QDir>
#include <QStandardPaths>

#include <algorithm>
#include <cstdio>
#include <malloc.h>

namespace {

constexpr int parts = 10;

/// How the user goes about it.
constexpr std::array courses{
    "start, picture, stroke, wait 2000",
    "answer verify 0104, start, picture, stroke, answer verify 0103, picture, stroke, wait 2000",
    "answer verify 0104, start, picture, stroke, picture, stroke, answer verify 0103, picture, stroke, wait "
    "2000",
    "start, picture, refresh, picture, stroke, wait 2000",
    "break, start, wait 3000, mend, retry, picture, stroke, wait 2000",
    "characters, start, picture, type typed7, tap doneButton, wait 2000",
    "outage, start, picture, stroke, wait 2000",
};

constexpr std::array whatMayGrow{"KiB", "open files", "threads", "timers", "widgets"};
constexpr qint64 growthAllowedKib = 1024;

qint64 entriesOf(const char *folder)
{
    return QDir(q(folder)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System).size();
}

// VmRSS of /proc/self/status is off by some hundred pages: each thread counts its own and hands in the sum
// late.
qint64 residentKib()
{
    QFile file(q("/proc/self/smaps_rollup"));
    const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const QByteArray name = QByteArrayLiteral("\nRss:");
    const qsizetype at = text.indexOf(name) + name.size();
    const qint64 kib = text.mid(at, text.indexOf("kB", at) - at).trimmed().toLongLong();
    if (kib <= 0)
        qFatal("this system does not tell what a process holds in memory");
    return kib;
}

/// Looks at what the process holds, and compares the first half of what it saw with the last.
class Meter
{
public:
    /// Looks once more; gives what there is in words.
    QString look()
    {
        // The least of each within half a second, since connections and threads end a little late.
        Sample least = sampleNow();
        for (int look = 1; look < 10; ++look) {
            QTest::qWait(50);
            std::ranges::transform(least, sampleNow(), least.begin(), std::ranges::min);
        }
        m_samples.push_back(least);
        QStringList texts;
        for (std::size_t i = 0; i < whatMayGrow.size(); ++i)
            texts.append(q("%1 %2").arg(least[i]).arg(q(whatMayGrow[i])));
        return texts.join(q(", "));
    }

    /// What has grown, null if nothing has: memory by more than 1 MiB within the last half, anything else
    /// beyond the most of the first half.
    [[nodiscard]] QString growth() const
    {
        const auto middle = m_samples.begin() + std::ptrdiff_t(m_samples.size() / 2);
        for (std::size_t i = 0; i < whatMayGrow.size(); ++i) {
            const auto most = [i](auto first, auto last) {
                const auto isLess = [i](const Sample &a, const Sample &b) {
                    return a[i] < b[i];
                };
                return (*std::max_element(first, last, isLess))[i];
            };
            const qint64 allowed = i == 0 ? (*middle)[i] + growthAllowedKib : most(m_samples.begin(), middle);
            if (most(middle, m_samples.end()) > allowed)
                return q(whatMayGrow[i]);
        }
        return {};
    }

private:
    /// Memory in KiB, open files, threads, timers, widgets.
    using Sample = std::array<qint64, whatMayGrow.size()>;

    static Sample sampleNow()
    {
        // What was given back counts as given back, though the heap would keep it for later.
        ::malloc_trim(0);
        return {residentKib(), entriesOf("/proc/self/fd"), entriesOf("/proc/self/task"),
                QVScheduler::shared().pendingCount(), QApplication::allWidgets().size()};
    }

    std::vector<Sample> m_samples;
};

} // namespace

/// Verifies as a user does, over and over, in virtual time.
class Soak : public ModesTestCase
{
    Q_OBJECT

public:
    explicit Soak(int verifications)
        : m_count(verifications)
    {
    }

private Q_SLOTS:
    /// A pool of threads or connections grows when it first has that much to do at a time, however late that
    /// is, and then no more. So what has grown is watched for as long again: a leak is what grows then, too.
    void nothingGrows()
    {
        Meter meter;
        for (const int from : {0, m_count}) {
            measure(from, meter);
            if (QTest::currentTestFailed() || meter.growth().isNull())
                return;
            std::printf("%s grow\n", qUtf8Printable(meter.growth()));
        }
        QFAIL("something grows");
    }

private:
    /// Verifies \a m_count times, and looks at what the process holds after each part.
    void measure(int from, Meter &meter)
    {
        for (int done = 1; done <= m_count; ++done) {
            verify(from + done);
            if (QTest::currentTestFailed())
                return;
            if (done * parts / m_count == (done - 1) * parts / m_count)
                continue;
            std::printf("%d verifications: %s\n", from + done, qUtf8Printable(meter.look()));
            std::fflush(stdout);
        }
    }

    void verify(int number)
    {
        finish();
        advance(std::chrono::seconds(200));
        prepare();
        addStep("break", [this](auto) { service().breakPictures(true); });
        addStep("mend", [this](auto) { service().breakPictures(false); });
        addStep("retry", [this](auto) { clickPart("errorOverlayView"); });
        setMode(words("click, invisible, embed").at(number % 3));
        const char *const course = courses.at(std::size_t(number) / 3 % courses.size());
        go(q(course));
        const QStringList passed = outcomes().said().filter(q("passed "));
        QVERIFY2(passed.size() == 1, qPrintable(q("verification %1: %2").arg(number).arg(q(course))));
    }

    const int m_count;
};

/// Runs so many whole verifications in one process, and tells whether anything grows.
int main(int argc, char *argv[])
{
    // The free end of any other arena is not given back, and comes and goes with the order of threads.
    ::mallopt(M_ARENA_MAX, 1);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    // Qt Test ends a test after five minutes.
    qputenv("QTEST_FUNCTION_TIMEOUT", "86400000");
    quietPlatform();
    QApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    const int count = QApplication::arguments().value(1).toInt();
    if (count < parts) {
        std::fprintf(stderr, "usage: quarvo-soak COUNT (at least %d)\n", parts);
        return 2;
    }
    Soak soak(count);
    return QTest::qExec(&soak, {QApplication::arguments().constFirst()});
}

#include "main.moc"
