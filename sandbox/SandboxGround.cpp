#include "sandbox/SandboxGround.h"

#include "sandbox/SandboxGeometry.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>

using SandboxGeometry::pictureHeight;
using SandboxGeometry::pictureWidth;

namespace {

constexpr double fullTurn = 2.0 * std::numbers::pi;

// Sky above, sky below, sun, then three grounds from far to near.
constexpr std::array<std::array<QRgb, 6>, 7> palettes{{
    {0xff26355d, 0xffc86b98, 0xffffd6a5, 0xff7d5a96, 0xff4b3f72, 0xff2a2a4f},
    {0xff4f9bd9, 0xffcfe8f3, 0xfffff3c4, 0xff7fb3a8, 0xff4c8c7a, 0xff2b5f57},
    {0xfff0a35e, 0xfffbe0b0, 0xfffff6df, 0xffc9785a, 0xff8f4e4e, 0xff573447},
    {0xff0f2b46, 0xff3f7f93, 0xffe8f6d5, 0xff2c6475, 0xff1d475c, 0xff102d40},
    {0xff7fb77e, 0xffe9f2c9, 0xfffffbe0, 0xff9ac48a, 0xff5f9a63, 0xff356848},
    {0xff6d5bd0, 0xfff2b5d4, 0xffffe9f3, 0xff9a7fd6, 0xff6a58b0, 0xff41397c},
    {0xff5a6f86, 0xffd9dfe3, 0xfff7f7ef, 0xff8fa0ad, 0xff64798a, 0xff3e5164},
}};

QColor mixed(const QColor &a, const QColor &b, double share)
{
    const auto mix = [share](int x, int y) {
        return std::clamp(static_cast<int>(x + (y - x) * share), 0, 255);
    };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

} // namespace

SandboxGround::SandboxGround(quint64 seed)
    : m_random(seed ^ 0x67726f756e64U)
    , m_palette(&palettes[static_cast<std::size_t>(m_random.below(palettes.size()))])
{
}

void SandboxGround::draw(QImage &image, int scale)
{
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(scale, scale);
        drawSky(painter);
        const std::array kinds{&SandboxGround::drawHills, &SandboxGround::drawHills,
                               &SandboxGround::drawBubbles, &SandboxGround::drawFacets,
                               &SandboxGround::drawRibbons};
        (this->*kinds[static_cast<std::size_t>(m_random.below(kinds.size()))])(painter);
    }
    addGrain(image);
}

QColor SandboxGround::colour(int index, int alpha) const
{
    QColor colour((*m_palette)[static_cast<std::size_t>(index)]);
    colour.setAlpha(alpha);
    return colour;
}

void SandboxGround::drawSky(QPainter &painter)
{
    QLinearGradient sky(m_random.real(0.0, pictureWidth), 0.0, pictureWidth / 2.0, pictureHeight);
    sky.setColorAt(0.0, colour(0));
    sky.setColorAt(0.85, colour(1));
    painter.fillRect(QRectF(0.0, 0.0, pictureWidth, pictureHeight), sky);
}

void SandboxGround::drawSun(QPainter &painter)
{
    const QPointF centre(m_random.real(70.0, 330.0), m_random.real(50.0, 100.0));
    const double radius = m_random.real(16.0, 26.0);
    QRadialGradient glow(centre, radius * 4.5);
    glow.setColorAt(0.0, colour(2, 150));
    glow.setColorAt(1.0, colour(2, 0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(glow);
    painter.drawEllipse(centre, radius * 4.5, radius * 4.5);
    painter.setBrush(colour(2, 235));
    painter.drawEllipse(centre, radius, radius);
}

void SandboxGround::drawHills(QPainter &painter)
{
    drawSun(painter);
    constexpr int layers = 5;
    for (int layer = 0; layer < layers; ++layer) {
        const double depth = static_cast<double>(layer) / (layers - 1);
        const double base = 118.0 + 86.0 * depth;
        const double swell = 20.0 - 8.0 * depth;
        const double phase = m_random.real(0.0, fullTurn);
        const double pace = m_random.real(0.012, 0.02) + 0.006 * depth;
        const auto height = [=](double x) {
            return base + swell * std::sin(x * pace + phase) +
                   swell * 0.45 * std::sin(x * pace * 2.3 + phase * 1.7) +
                   2.2 * std::sin(x * 0.11 + phase * 3.0);
        };
        QPainterPath hill(QPointF(0.0, pictureHeight));
        for (double x = 0.0; x <= pictureWidth; x += 4.0)
            hill.lineTo(x, height(x));
        hill.lineTo(pictureWidth, pictureHeight);
        const QColor crest = depth < 0.5 ? mixed(colour(3), colour(4), depth * 2.0)
                                         : mixed(colour(4), colour(5), depth * 2.0 - 1.0);
        QLinearGradient slope(0.0, base - swell, 0.0, base + 70.0);
        slope.setColorAt(0.0, crest);
        slope.setColorAt(1.0, mixed(crest, colour(1), 0.35 * (1.0 - depth)));
        painter.fillPath(hill, slope);
    }
}

void SandboxGround::drawBubbles(QPainter &painter)
{
    painter.fillRect(QRectF(0.0, 0.0, pictureWidth, pictureHeight), colour(5, 90));
    for (int i = 0; i < 34; ++i) {
        const QPointF centre(m_random.real(-20.0, 420.0), m_random.real(-20.0, 250.0));
        const double radius = m_random.real(8.0, 44.0);
        const QColor tint = mixed(colour(1 + m_random.below(3)), Qt::white, m_random.real(0.0, 0.35));
        const auto withAlpha = [&tint](int alpha) {
            return QColor(tint.red(), tint.green(), tint.blue(), alpha);
        };
        const int alpha = 30 + m_random.below(50);
        QRadialGradient fill(centre, radius);
        fill.setColorAt(0.0, withAlpha(alpha / 2));
        fill.setColorAt(0.86, withAlpha(alpha));
        fill.setColorAt(0.93, withAlpha(std::min(alpha + 40, 255)));
        fill.setColorAt(1.0, withAlpha(0));
        painter.setPen(Qt::NoPen);
        painter.setBrush(fill);
        painter.drawEllipse(centre, radius, radius);
    }
}

void SandboxGround::drawFacets(QPainter &painter)
{
    constexpr int columns = 9;
    constexpr int rows = 6;
    std::array<std::array<QPointF, columns + 1>, rows + 1> corners;
    for (int row = 0; row <= rows; ++row) {
        for (int column = 0; column <= columns; ++column) {
            corners[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] =
                QPointF(-25.0 + 50.0 * column + m_random.real(-17.0, 17.0),
                        -25.0 + 47.0 * row + m_random.real(-15.0, 15.0));
        }
    }
    const auto facet = [&](QPointF a, QPointF b, QPointF c) {
        const double depth = std::clamp((a.y() + b.y() + c.y()) / 3.0 / pictureHeight, 0.0, 1.0);
        const QColor base = depth < 0.5 ? mixed(colour(1), colour(3), depth * 2.0)
                                        : mixed(colour(3), colour(4), depth * 2.0 - 1.0);
        const QColor shade =
            mixed(base, m_random.below(2) == 0 ? colour(2) : colour(5), m_random.real(0.0, 0.3));
        painter.setPen(QPen(shade, 0.7));
        painter.setBrush(shade);
        painter.drawPolygon(QPolygonF({a, b, c}));
    };
    for (std::size_t row = 0; row < rows; ++row) {
        for (std::size_t column = 0; column < columns; ++column) {
            facet(corners[row][column], corners[row][column + 1], corners[row + 1][column]);
            facet(corners[row][column + 1], corners[row + 1][column + 1], corners[row + 1][column]);
        }
    }
}

void SandboxGround::drawRibbons(QPainter &painter)
{
    constexpr int count = 7;
    for (int i = 0; i < count; ++i) {
        const double base = -10.0 + 36.0 * i;
        const double phase = m_random.real(0.0, fullTurn);
        const double pace = m_random.real(0.009, 0.016);
        const double swell = m_random.real(14.0, 26.0);
        QPainterPath ribbon(QPointF(0.0, pictureHeight));
        for (double x = 0.0; x <= pictureWidth; x += 4.0)
            ribbon.lineTo(x, base + x * 0.07 + swell * std::sin(x * pace + phase));
        ribbon.lineTo(pictureWidth, pictureHeight);
        const double depth = static_cast<double>(i) / (count - 1);
        QLinearGradient fill(0.0, 0.0, pictureWidth, 0.0);
        fill.setColorAt(0.0, mixed(mixed(colour(3), colour(5), depth), colour(2), 0.25));
        fill.setColorAt(0.5, mixed(colour(3), colour(5), depth));
        fill.setColorAt(1.0, mixed(mixed(colour(3), colour(4), depth), colour(1), 0.3));
        painter.fillPath(ribbon, fill);
        painter.strokePath(ribbon, QPen(QColor(255, 255, 255, 34), 1.2));
    }
}

void SandboxGround::addGrain(QImage &image)
{
    // A table, since a random number for each pixel would take longer than the scenery. Its length is prime,
    // so that no pattern is visible.
    constexpr std::size_t length = 4093;
    std::array<int, length> grain{};
    std::ranges::generate(grain, [this] { return static_cast<int>(m_random.real(-6.0, 7.0)); });
    std::size_t at = 0;
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        at = (at + static_cast<std::size_t>(m_random.below(length))) % length;
        for (int x = 0; x < image.width(); ++x) {
            const int shift = grain[at];
            at = at + 1 == length ? 0 : at + 1;
            line[x] =
                qRgb(std::clamp(qRed(line[x]) + shift, 0, 255), std::clamp(qGreen(line[x]) + shift, 0, 255),
                     std::clamp(qBlue(line[x]) + shift, 0, 255));
        }
    }
}
