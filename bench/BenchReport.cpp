#include "BenchReport.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QThread>

#include <cstdio>
#include <cstdlib>

namespace {

QString processor()
{
    QFile file(QStringLiteral("/proc/cpuinfo"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("model name"))
            return QString::fromUtf8(line.mid(line.indexOf(':') + 1)).trimmed();
    }
    return {};
}

QString machine()
{
    double load = 0;
    getloadavg(&load, 1);
    return QStringLiteral("%1 cores (%2), Qt %3, offscreen; load average %4 at the start")
        .arg(QString::number(QThread::idealThreadCount()), processor(), QLatin1String(qVersion()),
             QString::number(load, 'f', 1));
}

void printLine(const QString &line)
{
    std::printf("%s\n", qUtf8Printable(line));
}

} // namespace

BenchReport::BenchReport(bool isShort)
    : m_isShort(isShort)
    , m_machine(machine())
{
}

void BenchReport::print() const
{
    printLine(m_machine + (m_isShort ? QStringLiteral(". A short run: proves only that it runs.\n")
                                     : QStringLiteral(".\n")));
    printTable(QStringLiteral("what"), true);
    printLine({});
    printTable(QStringLiteral("for itself, and how it grows"), false);
}

void BenchReport::printTable(const QString &first, bool withTargets) const
{
    printLine(QStringLiteral("| %1 | ours | limit | ratio | to reach | met |").arg(first));
    printLine(QStringLiteral("| --- | --- | --- | --- | --- | --- |"));
    for (const BenchRow &row : m_rows) {
        if ((row.target != BenchRow::Target::None) == withTargets)
            printLine(row.toMarkdown());
    }
}

bool BenchReport::save(const QString &path) const
{
    QJsonArray rows;
    for (const BenchRow &row : m_rows)
        rows.append(row.toJson());
    const QJsonObject whole{{QStringLiteral("machine"), m_machine},
                            {QStringLiteral("short"), m_isShort},
                            {QStringLiteral("rows"), rows}};
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(whole).toJson()) > 0;
}
