#include "BenchSections.h"

#include "BenchClock.h"
#include "BenchDesktop.h"
#include "BenchFailure.h"
#include "BenchReport.h"
#include "BenchRun.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>

namespace {

const QString milliseconds = QStringLiteral("ms");
const QString mebibytes = QStringLiteral("MiB");

QJsonObject runHost(const BenchSetting &setting, const char *program, const QString &mode,
                    const QProcessEnvironment &environment)
{
    return benchRun(setting.folder + QStringLiteral("/quarvo-bench-") + QLatin1String(program),
                    {mode, setting.desktop.addresses()}, environment);
}

QProcessEnvironment scaled(QProcessEnvironment environment, int ratio)
{
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(ratio));
    return environment;
}

/// Runs our host and the bare one in turns, so that other load of the machine affects both equally. The first
/// round only warms up.
std::pair<BenchRuns, BenchRuns> runBoth(const BenchSetting &setting, int rounds, const QString &ourMode,
                                        const QString &bareMode, const QProcessEnvironment &environment)
{
    std::pair<BenchRuns, BenchRuns> runs;
    for (int round = setting.isShort ? 1 : 0; round <= setting.rounds(rounds); ++round) {
        const QJsonObject ours = runHost(setting, "host", ourMode, environment);
        const QJsonObject bare = runHost(setting, "bare", bareMode, environment);
        if (round == 0)
            continue;
        runs.first.add(ours);
        runs.second.add(bare);
    }
    return runs;
}

} // namespace

void benchStart(const BenchSetting &setting)
{
    constexpr double allowance = 3;
    BenchRuns runs;
    const QString program = setting.folder + QStringLiteral("/quarvo-bench-load-");
    for (int round = setting.rounds(41); round > 0; --round) {
        for (const char *library : {"Quarvo", "bench_empty"})
            runs.add({{QLatin1String(library),
                       benchRun(program + QLatin1String(library), {QString::number(benchNow(), 'f', 6)},
                                setting.desktop.plain())
                           .value(QStringLiteral("load"))}});
    }
    const double bare = runs.median("bench_empty");
    benchTell({QStringLiteral("start: a program linked with the library, up to main"), milliseconds,
               runs.median("Quarvo"), bare, bare + allowance});
}

void benchPanel(const BenchSetting &setting)
{
    constexpr double allowedTimes = 1.25;
    const auto tell = [&](const QString &name, const QProcessEnvironment &environment) {
        const auto [ours, bare] =
            runBoth(setting, 21, QStringLiteral("panel"), QStringLiteral("panel"), environment);
        benchTell({QStringLiteral("panel: from main to its picture, ") + name, milliseconds,
                   ours.median("painted"), bare.median("painted"), bare.median("painted") * allowedTimes});
    };
    tell(QStringLiteral("without key chain"), setting.desktop.plain());
    tell(QStringLiteral("with key chain"), setting.desktop.withKeys());
}

void benchClick(const BenchSetting &setting)
{
    constexpr double allowance = 3;
    const auto tell = [&](const char *mode, const QString &what) {
        const auto [ours, bare] =
            runBoth(setting, 15, QLatin1String(mode), QStringLiteral("click"), setting.desktop.withKeys());
        benchTell({what + QStringLiteral(", first of a process"), milliseconds, ours.median("first"),
                   bare.median("first"), bare.median("first") + allowance});
        benchTell({what + QStringLiteral(", any later one"), milliseconds, ours.median("again"),
                   bare.median("again"), bare.median("again") + allowance});
    };
    tell("click", QStringLiteral("click: from release to the passed look"));
    tell("invisible", QStringLiteral("invisible: from start to token"));
}

void benchStroke(const BenchSetting &setting)
{
    constexpr double allowedTimes = 2;
    for (const int ratio : {1, 2, 3}) {
        const auto [ours, bare] = runBoth(setting, 3, QStringLiteral("stroke"), QStringLiteral("stroke"),
                                          scaled(setting.desktop.plain(), ratio));
        for (const char *place : {"move10", "move500"}) {
            benchTell(
                {QStringLiteral("stroke: %1 with its repaint, at %2x").arg(QLatin1String(place)).arg(ratio),
                 QStringLiteral("us"), ours.median(place), bare.median(place),
                 bare.median(place) * allowedTimes});
        }
    }
}

void benchStalls(const BenchSetting &setting)
{
    constexpr double halfAFrame = 8;
    constexpr double whileMoving = 4;
    const QProcessEnvironment keys = setting.desktop.withKeys();
    const auto tell = [&](const char *mode, const QString &what, const QProcessEnvironment &environment,
                          double atMost) {
        BenchRuns runs;
        for (int round = setting.rounds(5); round > 0; --round)
            runs.add(runHost(setting, "host", QLatin1String(mode), environment));
        benchTell(
            {QStringLiteral("longest stall: ") + what, milliseconds, runs.median("longest"), {}, atMost});
        benchTell(
            {QStringLiteral("stalls over 4 ms: ") + what, QStringLiteral("times"), runs.median("many")});
    };
    QProcessEnvironment screen = keys;
    screen.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    screen.insert(QStringLiteral("DISPLAY"), setting.desktop.display());
    tell("solve-popup", QStringLiteral("click, popup, draw, pass (X11)"), screen, halfAFrame);
    tell("solve-popup", QStringLiteral("click, popup, draw, pass (offscreen)"), keys, halfAFrame);
    tell("solve-panel", QStringLiteral("panel, draw, pass at 3x"), scaled(keys, 3), whileMoving);
    QProcessEnvironment slow = keys;
    slow.insert(QStringLiteral("LD_PRELOAD"), setting.folder + QStringLiteral("/libbench_slow_files.so"));
    tell("solve-panel", QStringLiteral("panel, home folder of 10 ms a file call"), slow, halfAFrame);
    setting.desktop.setKeyringHangs(true);
    tell("solve-panel", QStringLiteral("panel, key chain that hangs"), keys, halfAFrame);
    setting.desktop.setKeyringHangs(false);
}

void benchFrames(const BenchSetting &setting)
{
    constexpr double allowedShare = 5;
    // Keeps one core busy.
    QThread *const load = QThread::create([] {
        while (!QThread::currentThread()->isInterruptionRequested()) {
        }
    });
    load->start();
    for (const char *what : {"panel", "button", "badge"}) {
        BenchRuns runs;
        for (int round = setting.rounds(3); round > 0; --round)
            runs.add(runHost(setting, "host", QStringLiteral("frames-") + QLatin1String(what),
                             setting.desktop.plain()));
        benchTell({QStringLiteral("frames that are late, one core busy: waiting %1").arg(QLatin1String(what)),
                   QStringLiteral("%"),
                   runs.median("late"),
                   {},
                   allowedShare});
    }
    load->requestInterruption();
    load->wait();
    delete load;
}

void benchIdle(const BenchSetting &setting)
{
    for (const char *what : {"panel", "button", "popup"}) {
        const QJsonObject told =
            runHost(setting, "host", QStringLiteral("idle-") + QLatin1String(what), setting.desktop.plain());
        // One switch is allowed, since a timer interrupt of the system may wake a waiting process.
        benchTell({QStringLiteral("idle %1: context switches in %2 s")
                       .arg(QLatin1String(what))
                       .arg(told.value(QStringLiteral("seconds")).toDouble()),
                   QStringLiteral("times"), told.value(QStringLiteral("switches")).toDouble(), 0, 1});
    }
}

void benchMemoryInUse(const BenchSetting &setting)
{
    constexpr double panelAllowance = 6;
    constexpr double buttonAllowance = 3;
    constexpr double growthAllowance = 2;
    const auto tell = [&](const char *mode, double allowance) {
        const auto [ours, bare] =
            runBoth(setting, 5, QLatin1String(mode), QStringLiteral("button"), setting.desktop.withKeys());
        benchTell({QStringLiteral("memory: a host with a %1, beside one with a push button")
                       .arg(QLatin1String(mode)),
                   mebibytes, ours.median("pss"), bare.median("pss"), bare.median("pss") + allowance});
    };
    tell("panel", panelAllowance);
    tell("click", buttonAllowance);
    for (const char *how : {"visible", "hidden"}) {
        const QJsonObject told = benchRun(setting.folder + QStringLiteral("/quarvo-bench-hours"),
                                          {QLatin1String(how), setting.desktop.addresses(),
                                           setting.isShort ? QStringLiteral("10") : QStringLiteral("90")},
                                          setting.desktop.plain());
        const QString what = QStringLiteral("%1 minutes of a %2 panel: ")
                                 .arg(told.value(QStringLiteral("minutes")).toDouble())
                                 .arg(QLatin1String(how));
        benchTell({what + QStringLiteral("growth"),
                   mebibytes,
                   told.value(QStringLiteral("growth")).toDouble(),
                   {},
                   growthAllowance});
        benchTell({what + QStringLiteral("pictures asked for"), QStringLiteral("times"),
                   told.value(QStringLiteral("pictures")).toDouble()});
    }
}

void benchSize(const BenchSetting &setting)
{
    constexpr double bytesPerKib = 1024;
    constexpr double bothAtMost = 800;
    const QString kibibytes = QStringLiteral("KiB");
    const auto stripped = [](const QString &library) {
        const QTemporaryDir folder;
        const QString copy = folder.filePath(QStringLiteral("library"));
        if (QProcess::execute(QStringLiteral("strip"), {QStringLiteral("-o"), copy, library}) != 0)
            throw BenchFailure(QStringLiteral("cannot strip ") + library);
        return double(QFileInfo(copy).size()) / bytesPerKib;
    };
    const QString source = setting.folder + QStringLiteral("/../src/");
    const double core = stripped(source + QStringLiteral("libQuarvoCore.so"));
    const double widgets = stripped(source + QStringLiteral("libQuarvo.so"));
    double module = 0;
    for (const QFileInfo &file : QDir(source + QStringLiteral("quarvo")).entryInfoList(QDir::Files))
        module += stripped(file.filePath());
    benchTell({QStringLiteral("size: both libraries, stripped, artwork included"), kibibytes, core + widgets,
               stripped(setting.folder + QStringLiteral("/libbench_empty.so")), bothAtMost});
    benchTell({QStringLiteral("size: of it the core"), kibibytes, core});
    benchTell({QStringLiteral("size: module for the key chain, loaded at first use"), kibibytes, module});
}
