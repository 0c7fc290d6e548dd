#include "BenchChild.h"

#include "BenchFailure.h"

#include <QJsonDocument>

namespace {

constexpr int timeLimit = 180 * 1000;

} // namespace

BenchChild::BenchChild(const QString &program, const QStringList &arguments,
                       const QProcessEnvironment &environment)
    : m_process(std::make_unique<QProcess>())
{
    m_process->setProcessEnvironment(environment);
    m_process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process->start(program, arguments);
}

QList<QJsonObject> BenchChild::results()
{
    const bool ended = m_process->waitForFinished(timeLimit);
    const QString name = m_process->program() + u' ' + m_process->arguments().value(0);
    if (!ended || m_process->exitStatus() != QProcess::NormalExit || m_process->exitCode() != 0)
        throw BenchFailure(name + QStringLiteral(" did not run: ") + m_process->errorString());
    QList<QJsonObject> found;
    for (const QByteArray &line : m_process->readAllStandardOutput().split('\n')) {
        if (line.startsWith('{'))
            found.append(QJsonDocument::fromJson(line).object());
    }
    if (found.isEmpty())
        throw BenchFailure(name + QStringLiteral(" told nothing"));
    return found;
}
