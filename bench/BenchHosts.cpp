#include "BenchHosts.h"

#include "BenchClock.h"
#include "BenchReport.h"

#include <map>

namespace {

constexpr double nanosecondsPerMillisecond = 1e6;
constexpr double startDelay = 100;
constexpr double tokenDelay = 500;

QJsonObject runHost(const BenchSetting &setting, const char *program, const char *mode, bool withKeys = false)
{
    return BenchChild(setting.folder + u'/' + QLatin1String(program),
                      {QLatin1String(mode), setting.addresses}, withKeys ? setting.withKeys : setting.plain)
        .result();
}

double milliseconds(const QJsonObject &result, const char *name)
{
    return result.value(QLatin1String(name)).toDouble() / nanosecondsPerMillisecond;
}

/// Tells time and processor time from main to the picture.
void addPanel(const BenchSetting &setting, BenchReport &report, const QString &name, bool withKeys)
{
    std::vector<double> oursProcessor;
    std::vector<double> limitProcessor;
    const BenchPair time = benchInTurn(
        setting.rounds(21, 2),
        [&] {
            const QJsonObject result = runHost(setting, "quarvo-bench-host", "panel", withKeys);
            oursProcessor.push_back(milliseconds(result, "processor"));
            return milliseconds(result, "painted") - startDelay;
        },
        [&] {
            const QJsonObject result = runHost(setting, "quarvo-bench-bare", "panel");
            limitProcessor.push_back(milliseconds(result, "processor"));
            return milliseconds(result, "painted");
        });
    report.add({QStringLiteral("panel, from main to its picture, %1").arg(name), QStringLiteral("ms"),
                time.ours, time.limit, BenchRow::Target::Times, 1.25});
    report.add({QStringLiteral("panel, processor time with loading, %1").arg(name), QStringLiteral("ms"),
                benchMedian(oursProcessor), benchMedian(limitProcessor)});
}

} // namespace

void benchPanel(const BenchSetting &setting, BenchReport &report)
{
    addPanel(setting, report, QStringLiteral("without key chain"), false);
    addPanel(setting, report, QStringLiteral("with key chain"), true);
    report.add({QStringLiteral("panel's delay before it starts, not in the above"), QStringLiteral("ms"),
                startDelay});
}

void benchClick(const BenchSetting &setting, BenchReport &report)
{
    std::map<QString, std::vector<double>> times;
    const auto note = [&](const char *name, double time) {
        times[QLatin1String(name)].push_back(time);
    };
    for (int round = setting.rounds(15, 2); round > 0; --round) {
        const QJsonObject click = runHost(setting, "quarvo-bench-host", "click");
        note("click", milliseconds(click, "first") - tokenDelay);
        note("clickAgain", milliseconds(click, "again") - tokenDelay);
        note("shown", milliseconds(click, "firstShown"));
        note("shownAgain", milliseconds(click, "againShown"));
        const QJsonObject invisible = runHost(setting, "quarvo-bench-host", "invisible");
        note("invisible", milliseconds(invisible, "first"));
        note("invisibleAgain", milliseconds(invisible, "again"));
        const QJsonObject bare = runHost(setting, "quarvo-bench-bare", "click");
        note("bare", milliseconds(bare, "first"));
        note("bareAgain", milliseconds(bare, "again"));
    }
    const auto add = [&](const char *what, const char *ours, const char *limit, BenchRow::Target target) {
        report.add({QString::fromLatin1(what), QStringLiteral("ms"), benchMedian(times[QLatin1String(ours)]),
                    benchMedian(times[QLatin1String(limit)]), target, 1.2});
    };
    add("click, first of a process, tap to token", "click", "bare", BenchRow::Target::Times);
    add("click, any later one", "clickAgain", "bareAgain", BenchRow::Target::Times);
    add("click, first of a process, tap to the button's passed look", "shown", "bare",
        BenchRow::Target::None);
    add("click, any later one, tap to the button's passed look", "shownAgain", "bareAgain",
        BenchRow::Target::None);
    add("invisible without badge, first of a process, start to token", "invisible", "bare",
        BenchRow::Target::None);
    add("invisible without badge, any later one", "invisibleAgain", "bareAgain", BenchRow::Target::None);
    report.add({QStringLiteral("click's delay before the token, not in the above"), QStringLiteral("ms"),
                tokenDelay});
}

void benchMemoryAdded(const BenchSetting &setting, BenchReport &report)
{
    constexpr double bytesPerMib = 1024 * 1024;
    constexpr double bytesPerPixel = 4;
    constexpr double panelPixels = 400 * 270;
    double picturePixels = 0;
    std::vector<double> bareAdded;
    const auto pss = [](const QJsonObject &result) {
        return result.value(QStringLiteral("pss")).toDouble();
    };
    const BenchPair inUse = benchInTurn(
        setting.rounds(5, 1), [&] { return pss(runHost(setting, "quarvo-bench-host", "panel", true)); },
        [&] {
            const double button = pss(runHost(setting, "quarvo-bench-bare", "button"));
            const QJsonObject bare = runHost(setting, "quarvo-bench-bare", "panel");
            picturePixels = bare.value(QStringLiteral("width")).toDouble() *
                            bare.value(QStringLiteral("height")).toDouble();
            bareAdded.push_back(pss(bare) - button);
            return button;
        });
    const double limit = (picturePixels + panelPixels) * bytesPerPixel / bytesPerMib;
    report.add({QStringLiteral("memory that the panel adds to a host with one button"), QStringLiteral("MiB"),
                inUse.ours - inUse.limit, limit, BenchRow::Target::Over, 6});
    report.add({QStringLiteral("memory, beside a bare host that made the same requests"),
                QStringLiteral("MiB"), inUse.ours - inUse.limit, benchMedian(bareAdded)});
    report.add({QStringLiteral("memory of the host with one button"), QStringLiteral("MiB"), inUse.limit});
}

void benchLoading(const BenchSetting &setting, BenchReport &report)
{
    const auto load = [&](const char *library) {
        const QString program =
            setting.folder + QStringLiteral("/quarvo-bench-load-") + QLatin1String(library);
        BenchChild child(program, {QString::number(benchNow(), 'f', 0)}, setting.plain);
        return milliseconds(child.result(), "load");
    };
    const auto compare = [&](const QString &what, const char *library, BenchRow::Target target) {
        const BenchPair time = benchInTurn(
            setting.rounds(41, 3), [&] { return load(library); }, [&] { return load("bench_empty"); });
        report.add({what, QStringLiteral("ms"), time.ours, time.limit, target, 3});
    };
    compare(QStringLiteral("starting a host linked with the library"), "Quarvo", BenchRow::Target::Over);
    compare(QStringLiteral("starting one linked with an empty library and Qt Network"), "bench_network",
            BenchRow::Target::None);
}
