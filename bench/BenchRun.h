#pragma once

#include <QJsonObject>
#include <QProcessEnvironment>
#include <QStringList>

#include <map>
#include <vector>

/// The results of the runs of one host, by the names of the figures.
class BenchRuns
{
public:
    void add(const QJsonObject &told);

    [[nodiscard]] double median(const char *name) const;
    [[nodiscard]] double worst(const char *name) const;

private:
    std::map<QString, std::vector<double>> m_figures;
};

/// Runs \a program to its end, and returns the figures that it prints as one line of JSON. Throws
/// BenchFailure if it fails.
[[nodiscard]] QJsonObject benchRun(const QString &program, const QStringList &arguments,
                                   const QProcessEnvironment &environment);
