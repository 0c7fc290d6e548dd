#include "BenchDesktop.h"
#include "BenchFailure.h"
#include "BenchHosts.h"
#include "BenchLibrary.h"
#include "BenchParts.h"
#include "BenchReport.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

struct Section
{
    QLatin1String name;
    void (*run)(const BenchSetting &, BenchReport &);
};

constexpr std::array sections{
    Section{QLatin1String("panel"), benchPanel},        Section{QLatin1String("click"), benchClick},
    Section{QLatin1String("memory"), benchMemoryAdded}, Section{QLatin1String("loading"), benchLoading},
    Section{QLatin1String("parts"), benchParts},        Section{QLatin1String("library"), benchLibrary},
};

void run(const QString &json, const QString &only, bool isShort)
{
    const auto isNamed = [&only](const Section &section) {
        return section.name == only;
    };
    if (!only.isEmpty() && std::ranges::none_of(sections, isNamed))
        throw BenchFailure(QStringLiteral("there is no section ") + only);
    const QString folder = QCoreApplication::applicationDirPath();
    BenchReport report(isShort);
    const BenchDesktop desktop(folder + QStringLiteral("/../sandbox/quarvo-sandbox"));
    const BenchSetting setting{
        isShort,          folder, desktop.addresses(), desktop.environment(false), desktop.environment(true),
        desktop.keyring()};
    for (const Section &section : sections) {
        if (only.isEmpty() || section.name == only)
            section.run(setting, report);
    }
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
    parser.addOptions(
        {{QStringLiteral("short"), QStringLiteral("Only prove that everything runs.")},
         {QStringLiteral("only"), QStringLiteral("Only the panel, click, memory, loading, parts or library."),
          QStringLiteral("SECTION")},
         {QStringLiteral("json"), QStringLiteral("Where the figures go."), QStringLiteral("FILE"),
          QStringLiteral("build/bench.json")}});
    parser.process(application);
    try {
        run(parser.value(QStringLiteral("json")), parser.value(QStringLiteral("only")),
            parser.isSet(QStringLiteral("short")));
    } catch (const BenchFailure &failure) {
        std::fprintf(stderr, "quarvo-bench: %s\n", failure.what());
        return 1;
    }
    return 0;
}
