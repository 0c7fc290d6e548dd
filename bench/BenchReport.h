#pragma once

#include "BenchRow.h"

#include <QList>

/// Everything measured, as a table in Markdown and as JSON.
class BenchReport
{
public:
    explicit BenchReport(bool isShort);

    void add(const BenchRow &row) { m_rows.append(row); }
    void print() const;
    [[nodiscard]] bool save(const QString &path) const;

private:
    void printTable(const QString &first, bool withTargets) const;

    bool m_isShort;
    QString m_machine;
    QList<BenchRow> m_rows;
};
