#pragma once

#include <QJsonObject>
#include <QString>

/// One line of the table: a figure of ours, the limit beside it, and what was to be reached.
struct BenchRow
{
    enum class Target {
        /// Told for itself.
        None,
        /// Times the limit.
        Times,
        /// Above the limit.
        Over,
        /// Whatever the limit.
        AtMost,
    };

    QString what;
    QString unit;
    double ours = 0;
    /// Below zero where there is none.
    double limit = -1;
    Target target = Target::None;
    double bound = 0;

    [[nodiscard]] bool isMet() const;
    [[nodiscard]] QString toMarkdown() const;
    [[nodiscard]] QJsonObject toJson() const;
    [[nodiscard]] static BenchRow fromJson(const QJsonObject &object);
};
