#pragma once

#include "sandbox/SandboxRandom.h"

#include <QColor>
#include <QImage>
#include <QList>

#include <array>

class QPainter;

/// The scenery behind a puzzle: one of a few kinds, in one of a few palettes, covered with grain.
class SandboxGround
{
public:
    explicit SandboxGround(quint64 seed);

    void draw(QImage &image, int scale);

private:
    using Palette = std::array<QRgb, 6>;

    [[nodiscard]] QColor colour(int index, int alpha = 255) const;
    void drawSky(QPainter &painter);
    void drawSun(QPainter &painter);
    void drawHills(QPainter &painter);
    void drawBubbles(QPainter &painter);
    void drawFacets(QPainter &painter);
    void drawRibbons(QPainter &painter);
    void addGrain(QImage &image);

    SandboxRandom m_random;
    const Palette *m_palette;
};
