#include "BenchDesktop.h"
#include "BenchFailure.h"
#include "BenchReport.h"
#include "BenchSections.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

struct Section
{
    QLatin1String name;
    void (*run)(const BenchSetting &);
};

constexpr std::array sections{
    Section{QLatin1String("start"), benchStart},   Section{QLatin1String("panel"), benchPanel},
    Section{QLatin1String("click"), benchClick},   Section{QLatin1String("stroke"), benchStroke},
    Section{QLatin1String("stalls"), benchStalls}, Section{QLatin1String("frames"), benchFrames},
    Section{QLatin1String("idle"), benchIdle},     Section{QLatin1String("memory"), benchMemoryInUse},
    Section{QLatin1String("size"), benchSize},
};

void run(const QString &only, bool isShort)
{
    const auto isNamed = [&only](const Section &section) {
        return section.name == only;
    };
    if (!only.isEmpty() && std::ranges::none_of(sections, isNamed))
        throw BenchFailure(QStringLiteral("there is no section ") + only);
    const QString folder = QCoreApplication::applicationDirPath();
    const BenchDesktop desktop(folder + QStringLiteral("/../sandbox/quarvo-sandbox"));
    const BenchSetting setting{isShort, folder, desktop};
    benchBegin(isShort);
    for (const Section &section : sections) {
        if (only.isEmpty() || section.name == only)
            section.run(setting);
    }
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Measures what a host's user feels, beside what the bare toolkit needs."));
    parser.addHelpOption();
    parser.addOptions(
        {{QStringLiteral("short"), QStringLiteral("Only prove that everything runs.")},
         {QStringLiteral("only"),
          QStringLiteral("Only start, panel, click, stroke, stalls, frames, idle, memory or size."),
          QStringLiteral("SECTION")}});
    parser.process(application);
    try {
        run(parser.value(QStringLiteral("only")), parser.isSet(QStringLiteral("short")));
    } catch (const BenchFailure &failure) {
        std::fprintf(stderr, "quarvo-bench: %s\n", failure.what());
        return 1;
    }
    return 0;
}
