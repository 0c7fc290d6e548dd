#pragma once

#include <QString>

#include <optional>

/// One line of the table: a figure of ours, the bare toolkit's beside it, and what was to be reached.
struct BenchRow
{
    QString what;
    QString unit;
    double ours = 0;
    std::optional<double> bare = {};
    /// The most that ours may be; none for a figure that is told for itself.
    std::optional<double> atMost = {};
};

/// Prints what kind of machine measures, and the table's head.
void benchBegin(bool isShort);
void benchTell(const BenchRow &row);
