#pragma once

#include "sandbox/SandboxGeometry.h"

#include <QString>

#include <array>

/// Judges the coarse traces of the outage service. These are four hexadecimal digits, which name cells of a 4
/// x 4 grid over the picture: those of a stroke's start, its two main corners and its end.
///
/// The first corner is the point that is farthest from the line between the ends. The second one is the point
/// that is then farthest from the line between the first corner and the end on its side. If several points
/// are about as far, or in a flat bow, a slightly different stroke has different corners; all of these are
/// accepted.
class SandboxCellJudge
{
public:
    explicit SandboxCellJudge(const SandboxPath &curve);

    [[nodiscard]] bool accepts(const QString &digits) const;
    /// Whether the curve suits: few enough traces are right that guessing does not help, and the corners are
    /// clear enough to be drawn.
    [[nodiscard]] bool isClear() const;

private:
    /// One bit per cell.
    using Cells = quint16;
    using Reading = std::array<Cells, 4>;

    [[nodiscard]] Cells cellsAround(qsizetype from, qsizetype to) const;
    void addReadings(qsizetype corner, Cells cornerCells);

    SandboxPath m_points;
    QList<Reading> m_readings;
    double m_smallestCorner = 0.0;
};
