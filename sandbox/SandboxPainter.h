#pragma once

#include "sandbox/SandboxPuzzle.h"

#include <QByteArray>
#include <QImage>

class QPainter;

/// Draws the picture of a puzzle. It uses no fonts, so it works on any thread, even without a
/// QGuiApplication.
class SandboxPainter
{
public:
    /// With \a scale 1 the picture has 400 x 230 pixels, with 2 twice as many in each direction.
    SandboxPainter(const SandboxPuzzle &puzzle, int scale);

    [[nodiscard]] QImage image() const;
    [[nodiscard]] QByteArray jpeg() const;

private:
    void drawCurve(QPainter &painter) const;
    void drawCharacters(QPainter &painter) const;

    SandboxPuzzle m_puzzle;
    int m_scale = 1;
};
