#pragma once

#include <QString>

#include <optional>

/// One line of the table: the figure of the component, that of the bare toolkit, and the goal.
struct BenchRow
{
    QString what;
    QString unit;
    double ours = 0;
    std::optional<double> bare = {};
    /// The largest allowed value of \a ours; empty if there is no goal.
    std::optional<double> atMost = {};
};

/// Prints the kind of machine and the head of the table.
void benchBegin(bool isShort);
void benchTell(const BenchRow &row);
