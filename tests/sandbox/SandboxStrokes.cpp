#include "sandbox/SandboxStrokes.h"

#include "support/QVText.h"

#include <algorithm>
#include <cmath>

namespace SandboxStrokes {

namespace {

QString threeDigits(qint64 number)
{
    const QString digits = q("kqrsvj567opcd89ghiyz");
    return QString(digits[number / 8000]) + digits[number / 20 % 20] + digits[number % 20];
}

// The point farthest from the line between two others, by index; -1 where all lie on it.
qsizetype farthest(const SandboxPath &points, qsizetype from, qsizetype to, QPointF a, QPointF b,
                   double &best)
{
    qsizetype found = -1;
    for (qsizetype i = from; i < to; ++i) {
        const double area = SandboxGeometry::triangleArea(a, b, points[i]);
        if (area > best) {
            best = area;
            found = i;
        }
    }
    return found;
}

QChar cell(QPointF point)
{
    const auto line = [](double position, double size) {
        const double index = std::floor(position / (size / 4.0));
        return index >= 0.0 && index <= 2.0 ? static_cast<int>(index) : 3;
    };
    const int index =
        4 * line(point.y(), SandboxGeometry::pictureHeight) + line(point.x(), SandboxGeometry::pictureWidth);
    return q("0123456789abcdef")[index];
}

} // namespace

SandboxPath followed(const SandboxPath &curve, SandboxRandom &random)
{
    const SandboxPath dense = SandboxGeometry::resampled(curve, 200);
    const auto cutFront = static_cast<qsizetype>(random.real(0.0, 8.0));
    const auto cutBack = static_cast<qsizetype>(random.real(0.0, 8.0));
    SandboxPath points = SandboxGeometry::resampled(dense.mid(cutFront, dense.size() - cutFront - cutBack),
                                                    14 + random.below(40));
    const QPointF displaced(random.normal(4.0), random.normal(4.0));
    const double stretched = random.real(0.93, 1.07);
    const QPointF centre(200.0, 115.0);
    QPointF tremor;
    for (QPointF &point : points) {
        tremor = tremor * 0.8 + QPointF(random.normal(3.0), random.normal(3.0));
        point = centre + (point - centre) * stretched + displaced + tremor;
        point = {std::clamp(point.x(), 0.0, 399.0), std::clamp(point.y(), 0.0, 229.0)};
    }
    return points;
}

SandboxPath scribble(SandboxRandom &random)
{
    SandboxPath corners;
    while (corners.size() < 6)
        corners.append({random.real(10.0, 390.0), random.real(10.0, 220.0)});
    return SandboxGeometry::resampled(SandboxGeometry::splineThrough(corners, 12), 40);
}

SandboxPath straight(QPointF from, QPointF to)
{
    return SandboxGeometry::resampled({from, to}, 30);
}

QString encoded(const SandboxPath &points, qint64 millisecondsBetween, double top)
{
    QString columns;
    QString rows;
    QString times;
    for (qsizetype i = 0; i < points.size(); ++i) {
        columns += threeDigits(static_cast<qint64>(std::max(points[i].x(), 0.0)));
        rows += threeDigits(static_cast<qint64>(std::max(points[i].y() + top, 0.0) * 230.0 / 400.0));
        times += threeDigits(i * millisecondsBetween);
    }
    return columns + rows + times;
}

QString encodedCells(const SandboxPath &points)
{
    const qsizetype last = points.size() - 1;
    double best = 0.0;
    const qsizetype first = farthest(points, 1, last, points.first(), points.last(), best);
    double second = 0.0;
    qsizetype other = farthest(points, 1, first, points.first(), points[first], second);
    const qsizetype after = farthest(points, first + 1, last, points[first], points.last(), second);
    other = after < 0 ? other : after;
    return QString(cell(points.first())) + cell(points[std::min(first, other)]) +
           cell(points[std::max(first, other)]) + cell(points.last());
}

} // namespace SandboxStrokes
