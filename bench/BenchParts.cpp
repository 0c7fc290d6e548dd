#include "BenchParts.h"

#include "BenchReport.h"

#include <vector>

namespace {

BenchChild startPart(const BenchSetting &setting, const QString &part, bool withKeys = false, int ratio = 1)
{
    QProcessEnvironment environment = withKeys ? setting.withKeys : setting.plain;
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(ratio));
    const QString length = setting.isShort ? QStringLiteral("short") : QStringLiteral("whole");
    return {setting.folder + QStringLiteral("/quarvo-bench-parts"),
            {part, setting.addresses, length, QString::number(setting.keyring)},
            environment};
}

void addRows(BenchChild child, BenchReport &report)
{
    for (const QJsonObject &row : child.results())
        report.add(BenchRow::fromJson(row));
}

/// They only wait, so they do it together.
void addIdle(const BenchSetting &setting, BenchReport &report)
{
    std::vector<BenchChild> children;
    for (const char *what : {"idle-panel", "idle-button", "idle-popup"})
        children.push_back(startPart(setting, QLatin1String(what)));
    for (BenchChild &child : children)
        addRows(std::move(child), report);
}

} // namespace

void benchParts(const BenchSetting &setting, BenchReport &report)
{
    constexpr int largestRatio = 3;
    for (int ratio = 1; ratio <= largestRatio; ++ratio)
        addRows(startPart(setting, QStringLiteral("stroke"), false, ratio), report);
    addRows(startPart(setting, QStringLiteral("animation")), report);
    addIdle(setting, report);
    addRows(startPart(setting, QStringLiteral("transport")), report);
    addRows(startPart(setting, QStringLiteral("keychain"), true), report);
    addRows(startPart(setting, QStringLiteral("mapping")), report);
    addRows(startPart(setting, QStringLiteral("trace")), report);
    addRows(startPart(setting, QStringLiteral("count")), report);
    for (int ratio = 1; ratio <= largestRatio; ++ratio)
        addRows(startPart(setting, QStringLiteral("picture"), false, ratio), report);
}
