#include "BenchHosts.h"

#include "BenchClock.h"
#include "BenchReport.h"

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
    std::vector<double> oursFirst;
    std::vector<double> oursAgain;
    std::vector<double> shownFirst;
    std::vector<double> shownAgain;
    std::vector<double> limitFirst;
    std::vector<double> limitAgain;
    for (int round = setting.rounds(15, 2); round > 0; --round) {
        const QJsonObject ours = runHost(setting, "quarvo-bench-host", "click");
        oursFirst.push_back(milliseconds(ours, "first") - tokenDelay);
        oursAgain.push_back(milliseconds(ours, "again") - tokenDelay);
        shownFirst.push_back(milliseconds(ours, "firstShown"));
        shownAgain.push_back(milliseconds(ours, "againShown"));
        const QJsonObject bare = runHost(setting, "quarvo-bench-bare", "click");
        limitFirst.push_back(milliseconds(bare, "first"));
        limitAgain.push_back(milliseconds(bare, "again"));
    }
    report.add({QStringLiteral("click, first of a process, tap to token"), QStringLiteral("ms"),
                benchMedian(oursFirst), benchMedian(limitFirst), BenchRow::Target::Times, 1.2});
    report.add({QStringLiteral("click, any later one"), QStringLiteral("ms"), benchMedian(oursAgain),
                benchMedian(limitAgain), BenchRow::Target::Times, 1.2});
    report.add({QStringLiteral("click, first of a process, tap to the button's passed look"),
                QStringLiteral("ms"), benchMedian(shownFirst), benchMedian(limitFirst)});
    report.add({QStringLiteral("click, any later one, tap to the button's passed look"), QStringLiteral("ms"),
                benchMedian(shownAgain), benchMedian(limitAgain)});
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
    compare(QStringLiteral("starting one linked with an empty library, Qt Network and libsecret"),
            "bench_secret", BenchRow::Target::None);
}
