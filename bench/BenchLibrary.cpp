#include "BenchLibrary.h"

#include "BenchFailure.h"
#include "BenchReport.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace {

constexpr double bytesPerKib = 1024;

double strippedSize(const QString &library)
{
    const QTemporaryDir folder;
    const QString stripped = folder.filePath(QStringLiteral("library"));
    if (QProcess::execute(QStringLiteral("strip"), {QStringLiteral("-o"), stripped, library}) != 0)
        throw BenchFailure(QStringLiteral("cannot strip ") + library);
    return double(QFileInfo(stripped).size()) / bytesPerKib;
}

} // namespace

void benchLibrary(const BenchSetting &setting, BenchReport &report)
{
    BenchChild parts(setting.folder + QStringLiteral("/quarvo-bench-parts"), {QStringLiteral("artwork")},
                     setting.plain);
    const double artwork = parts.result().value(QStringLiteral("artwork")).toDouble() / bytesPerKib;
    const QString source = setting.folder + QStringLiteral("/../src/");
    const double core = strippedSize(source + QStringLiteral("libQuarvoCore.so"));
    const double widgets = strippedSize(source + QStringLiteral("libQuarvo.so"));
    const QDir modules(source + QStringLiteral("quarvo"));
    double module = 0;
    for (const QFileInfo &file : modules.entryInfoList(QDir::Files))
        module += strippedSize(file.filePath());
    const double empty = strippedSize(setting.folder + QStringLiteral("/libbench_empty.so"));
    report.add({QStringLiteral("both libraries, stripped"), QStringLiteral("KiB"), core + widgets, empty,
                BenchRow::Target::AtMost, 800});
    report.add({QStringLiteral("of it the core, which needs no Qt Widgets"), QStringLiteral("KiB"), core});
    report.add({QStringLiteral("of it artwork"), QStringLiteral("KiB"), artwork});
    report.add(
        {QStringLiteral("module for the key chain, loaded at first use"), QStringLiteral("KiB"), module});
}
