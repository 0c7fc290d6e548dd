#include "flow/QVRenderTrace.h"
#include "parts/PartTools.h"

#include <atomic>
#include <cerrno>

namespace {

std::atomic<qint64> allocations{0};

} // namespace

// Counts what the trace allocates; everything else is as it was.
extern "C" void *__libc_malloc(std::size_t size);
extern "C" void *malloc(std::size_t size)
{
    allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_malloc(size);
}

namespace {

QVRenderTrace traceOf(int count)
{
    constexpr double pace = 0.02;
    constexpr double stride = 6;
    constexpr int perRow = 60;
    QVRenderTrace trace;
    trace.setFrameSize({400, 270});
    trace.setPanGestureStartTime(0);
    for (int i = 0; i < count; ++i)
        trace.handlePanGesturePoint({stride * (i % perRow), stride * (i / perRow % perRow)}, pace * i);
    return trace;
}

qint64 allocationsOf(const std::function<void()> &call)
{
    const qint64 before = allocations.load();
    call();
    return allocations.load() - before;
}

void tellMainTrace()
{
    const QVRenderTrace trace = traceOf(80);
    const qsizetype length = trace.getRenderSource_v().size();
    const BenchPair cost = benchInTurn(
        21, [&] { return benchCostPerCall([&] { (void)trace.getRenderSource_v(); }); },
        [&] {
            return benchCostPerCall([&] {
                QString text(length, Qt::Uninitialized);
                std::fill_n(text.data(), length, QChar(u'k'));
            });
        });
    tellRow({QStringLiteral("`v` of 80 points, beside writing as many characters"), QStringLiteral("us"),
             cost.ours / nanosecondsPerMicrosecond, cost.limit / nanosecondsPerMicrosecond,
             BenchRow::Target::AtMost, 5});
    tellRow({QStringLiteral("`v` of 80 points (720 characters)"), QStringLiteral("allocations"),
             double(allocationsOf([&] { (void)trace.getRenderSource_v(); })), 1, BenchRow::Target::AtMost,
             1});
}

void tellOutageTrace()
{
    const QVRenderTrace trace = traceOf(80);
    const QRectF picture(0, 20, 400, 230);
    const BenchPair cost = benchInTurn(
        21, [&] { return benchCostPerCall([&] { (void)trace.getRenderOutage_v(picture); }); },
        [&] {
            return benchCostPerCall([&] {
                QString text(4, Qt::Uninitialized);
                std::fill_n(text.data(), 4, QChar(u'0'));
            });
        });
    tellRow({QStringLiteral("`v` of the outage kind, of 80 points"), QStringLiteral("us"),
             cost.ours / nanosecondsPerMicrosecond, cost.limit / nanosecondsPerMicrosecond,
             BenchRow::Target::AtMost, 5});
    tellRow({QStringLiteral("`v` of the outage kind (4 characters)"), QStringLiteral("allocations"),
             double(allocationsOf([&] { (void)trace.getRenderOutage_v(picture); })), 1,
             BenchRow::Target::AtMost, 1});
}

void tellRecorder(int count)
{
    const BenchPair cost = benchInTurn(
        7, [count] { return benchCostPerCall([count] { (void)traceOf(count); }) / count; },
        [] { return benchCostPerCall([] { (void)traceOf(10); }) / 10; });
    tellRow({QStringLiteral("recorder, a point of a trace of %1, beside one of 10").arg(count),
             QStringLiteral("ns"), cost.ours, cost.limit});
}

} // namespace

void runTracePart(const PartOptions &)
{
    tellMainTrace();
    tellOutageTrace();
    for (const int count : {10, 100, 1000, 10000})
        tellRecorder(count);
}
