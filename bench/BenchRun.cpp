#include "BenchRun.h"

#include "BenchClock.h"
#include "BenchFailure.h"

#include <QJsonDocument>
#include <QProcess>

#include <algorithm>

void BenchRuns::add(const QJsonObject &told)
{
    for (auto figure = told.begin(); figure != told.end(); ++figure)
        m_figures[figure.key()].push_back(figure.value().toDouble());
}

double BenchRuns::median(const char *name) const
{
    return benchMedian(m_figures.at(QLatin1String(name)));
}

double BenchRuns::worst(const char *name) const
{
    return std::ranges::max(m_figures.at(QLatin1String(name)));
}

QJsonObject benchRun(const QString &program, const QStringList &arguments,
                     const QProcessEnvironment &environment)
{
    constexpr int timeLimit = 180 * 1000;
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, arguments);
    const bool ended = process.waitForFinished(timeLimit);
    const QJsonObject told = QJsonDocument::fromJson(process.readAllStandardOutput()).object();
    if (!ended || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0 || told.isEmpty())
        throw BenchFailure(program + u' ' + arguments.value(0) + QStringLiteral(" did not run: ") +
                           process.errorString());
    return told;
}
