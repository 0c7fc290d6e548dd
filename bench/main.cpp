#include "BenchDesktop.h"
#include "BenchFailure.h"
#include "BenchHosts.h"
#include "BenchLibrary.h"
#include "BenchParts.h"
#include "BenchReport.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

namespace {

void run(const QString &json, bool isShort)
{
    const QString folder = QCoreApplication::applicationDirPath();
    BenchReport report(isShort);
    const BenchDesktop desktop(folder + QStringLiteral("/../sandbox/quarvo-sandbox"));
    const BenchSetting setting{
        isShort,          folder, desktop.addresses(), desktop.environment(false), desktop.environment(true),
        desktop.keyring()};
    benchHosts(setting, report);
    benchParts(setting, report);
    benchLibrary(setting, report);
    report.print();
    if (!report.save(json))
        throw BenchFailure(QStringLiteral("cannot write ") + json);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Measures the component beside what the toolkit allows."));
    parser.addHelpOption();
    parser.addOptions({{QStringLiteral("short"), QStringLiteral("Only prove that everything runs.")},
                       {QStringLiteral("json"), QStringLiteral("Where the figures go."),
                        QStringLiteral("FILE"), QStringLiteral("build/bench.json")}});
    parser.process(application);
    try {
        run(parser.value(QStringLiteral("json")), parser.isSet(QStringLiteral("short")));
    } catch (const BenchFailure &failure) {
        std::fprintf(stderr, "quarvo-bench: %s\n", failure.what());
        return 1;
    }
    return 0;
}
