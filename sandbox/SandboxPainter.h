#pragma once

#include "sandbox/SandboxPuzzle.h"

#include <QByteArray>
#include <QImage>

class QPainter;

/// Draws a puzzle's picture. Uses no fonts, so it works on any thread of any process.
class SandboxPainter
{
public:
    /// \a scale 1 gives 400 x 230, 2 its double.
    SandboxPainter(const SandboxPuzzle &puzzle, int scale);

    [[nodiscard]] QImage image() const;
    [[nodiscard]] QByteArray jpeg() const;

private:
    void drawCurve(QPainter &painter) const;
    void drawCharacters(QPainter &painter) const;

    SandboxPuzzle m_puzzle;
    int m_scale = 1;
};
