#pragma once

#include "sandbox/SandboxGeometry.h"

#include <QString>

#include <array>

/// Judges the outage service's coarse traces: four hexadecimal digits that name the cells, on a
/// 4 x 4 grid over the picture, of a stroke's start, its two chief corners and its end.
///
/// The corners are the point farthest from the line between the ends, and the point then farthest
/// from the leg on its side. Where the curve has several about as far, or a flat bow, a hand a
/// little off the curve finds another one: each of those is right.
class SandboxCellJudge
{
public:
    explicit SandboxCellJudge(const SandboxPath &curve);

    [[nodiscard]] bool accepts(const QString &digits) const;
    /// Whether so few traces are right that a guess is no answer, and the corners stand out enough
    /// for a hand to hit them.
    [[nodiscard]] bool isClear() const;

private:
    /// A bit a cell.
    using Cells = quint16;
    using Reading = std::array<Cells, 4>;

    [[nodiscard]] Cells cellsAround(qsizetype from, qsizetype to) const;
    void addReadings(qsizetype corner, Cells cornerCells);

    SandboxPath m_points;
    QList<Reading> m_readings;
    double m_smallestCorner = 0.0;
};
