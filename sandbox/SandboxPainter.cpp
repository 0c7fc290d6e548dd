#include "sandbox/SandboxPainter.h"

#include "sandbox/SandboxGlyphs.h"
#include "sandbox/SandboxGround.h"

#include <QBuffer>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>

using namespace SandboxGeometry;

namespace {

constexpr int jpegQuality = 82;

// The outline that separates the line from the background, whatever colour that has.
const QColor casing(12, 20, 38, 120);
const QColor startColour(255, 120, 48);
const QColor hintColour(58, 92, 150, 210);

QPen roundPen(const QColor &colour, double width)
{
    return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

QPainterPath pathThrough(const SandboxPath &points)
{
    QPainterPath path(points.first());
    for (qsizetype i = 1; i < points.size(); ++i)
        path.lineTo(points[i]);
    return path;
}

QPainterPath arrowAt(QPointF tip, QPointF heading, double size)
{
    const QPointF side(-heading.y(), heading.x());
    QPainterPath path(tip - heading * size + side * size * 0.75);
    path.lineTo(tip);
    path.lineTo(tip - heading * size - side * size * 0.75);
    return path;
}

QPointF directionBetween(QPointF from, QPointF to)
{
    return (to - from) / std::max(distance(from, to), 1e-6);
}

void drawStart(QPainter &painter, QPointF centre)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(casing);
    painter.drawEllipse(centre, 11.5, 11.5);
    painter.setBrush(Qt::white);
    painter.drawEllipse(centre, 9.5, 9.5);
    painter.setBrush(startColour);
    painter.drawEllipse(centre, 6.0, 6.0);
    painter.setBrush(Qt::NoBrush);
}

// Maps a character's box to a place in the picture: slanted, rotated and rippled.
class Warp
{
public:
    explicit Warp(SandboxRandom &random)
        : m_phase(random.real(0.0, 2.0 * std::numbers::pi))
        , m_amplitude(random.real(3.0, 6.0))
    {
    }

    void moveTo(QPointF centre, SandboxRandom &random)
    {
        m_centre = centre;
        m_angle = random.real(-0.24, 0.24);
        m_lean = random.real(-0.2, 0.2);
        m_size = QPointF(random.real(42.0, 50.0), random.real(72.0, 88.0));
    }

    [[nodiscard]] QPointF operator()(QPointF unit) const
    {
        QPointF p((unit.x() - 0.5) * m_size.x(), (unit.y() - 0.5) * m_size.y());
        p.rx() -= m_lean * p.y();
        p = m_centre + QPointF(p.x() * std::cos(m_angle) - p.y() * std::sin(m_angle),
                               p.x() * std::sin(m_angle) + p.y() * std::cos(m_angle));
        return p + QPointF(m_amplitude * std::sin(p.y() / 17.0 + m_phase),
                           m_amplitude * std::sin(p.x() / 21.0 + m_phase));
    }

private:
    double m_phase;
    double m_amplitude;
    QPointF m_centre;
    QPointF m_size;
    double m_angle = 0.0;
    double m_lean = 0.0;
};

QPainterPath characterPath(const QString &characters, SandboxRandom &random)
{
    constexpr double lineWidth = 350.0;
    Warp warp(random);
    const double pitch = lineWidth / static_cast<double>(characters.size());
    QPainterPath path;
    for (qsizetype i = 0; i < characters.size(); ++i) {
        const double x = (pictureWidth - lineWidth) / 2.0 + pitch * (static_cast<double>(i) + 0.5);
        warp.moveTo({x + random.real(-3.0, 3.0), random.real(108.0, 130.0)}, random);
        for (SandboxPath stroke : SandboxGlyphs::strokes(characters[i])) {
            std::ranges::transform(stroke, stroke.begin(), warp);
            path.addPath(pathThrough(stroke));
        }
    }
    return path;
}

QPainterPath scratch(SandboxRandom &random)
{
    SandboxPath points;
    for (const double x : {-10.0, 110.0, 210.0, 300.0, 410.0})
        points.append({x, random.real(60.0, 180.0)});
    constexpr int scratchSteps = 12;
    return pathThrough(splineThrough(points, scratchSteps));
}

} // namespace

SandboxPainter::SandboxPainter(const SandboxPuzzle &puzzle, int scale)
    : m_puzzle(puzzle)
    , m_scale(scale)
{
}

QImage SandboxPainter::image() const
{
    QImage image(static_cast<int>(pictureWidth) * m_scale, static_cast<int>(pictureHeight) * m_scale,
                 QImage::Format_RGB32);
    SandboxGround(m_puzzle.seed).draw(image, m_scale);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(m_scale, m_scale);
    if (m_puzzle.characters.isEmpty())
        drawCurve(painter);
    else
        drawCharacters(painter);
    return image;
}

QByteArray SandboxPainter::jpeg() const
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image().save(&buffer, "JPEG", jpegQuality);
    return bytes;
}

void SandboxPainter::drawCurve(QPainter &painter) const
{
    if (m_puzzle.curve.size() < 2)
        return;
    // One point every few units, so that the hints are at the right places.
    const SandboxPath points =
        resampled(m_puzzle.curve, static_cast<qsizetype>(length(m_puzzle.curve) / 3.0) + 2);
    const QPainterPath line = pathThrough(points);
    const QPainterPath head =
        arrowAt(points.last() + directionBetween(points[points.size() - 4], points.last()) * 4.0,
                directionBetween(points[points.size() - 4], points.last()), 13.0);
    for (const QPen &pen :
         {roundPen(QColor(12, 20, 38, 46), 15.0), roundPen(casing, 11.0), roundPen(Qt::white, 7.0)})
        painter.strokePath(line, pen);
    painter.strokePath(head, roundPen(casing, 10.0));
    painter.strokePath(head, roundPen(Qt::white, 6.0));
    painter.strokePath(line, roundPen(Qt::white, 7.0));
    constexpr qsizetype hintEvery = 16;
    for (qsizetype i = hintEvery; i + hintEvery / 2 < points.size(); i += hintEvery)
        painter.strokePath(arrowAt(points[i], directionBetween(points[i - 2], points[i]), 3.6),
                           roundPen(hintColour, 1.7));
    drawStart(painter, points.first());
}

void SandboxPainter::drawCharacters(QPainter &painter) const
{
    SandboxRandom random(m_puzzle.seed);
    const QPainterPath path = characterPath(m_puzzle.characters, random);
    for (const QPen &pen :
         {roundPen(QColor(12, 20, 38, 46), 16.0), roundPen(casing, 12.0), roundPen(Qt::white, 7.8)})
        painter.strokePath(path, pen);
    painter.strokePath(scratch(random), roundPen(QColor(255, 255, 255, 170), 2.5));
    painter.strokePath(scratch(random), roundPen(casing, 2.5));
}
