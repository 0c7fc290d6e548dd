#include "views/QVReadable.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

// All round, near enough to leave no gap between them.
constexpr std::array<QPointF, 8> around{QPointF(-1, 0),     QPointF(1, 0),       QPointF(0, -1),
                                        QPointF(0, 1),      QPointF(-0.7, -0.7), QPointF(0.7, -0.7),
                                        QPointF(-0.7, 0.7), QPointF(0.7, 0.7)};

/// Copies, which come ready from the font's cache: stroking the outlines takes ten times as long.
void drawAround(QPainter &painter, QPointF baseline, const QString &line)
{
    for (const QPointF offset : around)
        painter.drawText(baseline + offset, line);
}

/// For a halo darker than both the text and the ground: a pixel wide, it would fill the letters' eyes.
void drawOutlines(QPainter &painter, QPointF baseline, const QString &line)
{
    constexpr double width = 0.9;
    QPainterPath outlines;
    outlines.addText(baseline, painter.font(), line);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(outlines,
                       QPen(painter.pen().color(), width, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin));
}

double linear(float channel)
{
    const double value = channel;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor mixed(const QColor &from, const QColor &to, double part)
{
    const auto channel = [part](float one, float other) {
        return static_cast<float>(one + (static_cast<double>(other) - one) * part);
    };
    return QColor::fromRgbF(channel(from.redF(), to.redF()), channel(from.greenF(), to.greenF()),
                            channel(from.blueF(), to.blueF()));
}

double leastContrast(const QColor &color, const QColor &ground)
{
    const double part = ground.alphaF();
    return std::min(QVReadable::contrast(color, mixed(Qt::black, ground, part)),
                    QVReadable::contrast(color, mixed(Qt::white, ground, part)));
}

} // namespace

double QVReadable::contrast(const QColor &one, const QColor &other)
{
    constexpr double flare = 0.05;
    // By value, as from a list: of two temporaries it would return references.
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + flare) / (darker + flare);
}

QColor QVReadable::halo(const QColor &color, const QColor &ground, double wanted)
{
    if (leastContrast(color, ground) >= wanted)
        return {};
    const QColor end = contrast(color, Qt::black) > contrast(color, Qt::white) ? Qt::black : Qt::white;
    constexpr double step = 0.05;
    for (double part = step; part < 1; part += step) {
        const QColor candidate = mixed(ground, end, part);
        if (contrast(color, candidate) >= wanted)
            return candidate;
    }
    return end;
}

void QVReadable::drawText(QPainter &painter, QPointF baseline, const QString &line, const QColor &ground)
{
    const QColor color = painter.pen().color();
    // As outlines are laid out; the application's direction is that of its own texts.
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    if (QColor shade = halo(color, ground, textContrast); shade.isValid()) {
        shade.setAlphaF(color.alphaF());
        const bool isBetween = luminance(shade) < luminance(color) && luminance(ground) < luminance(color);
        painter.save();
        painter.setPen(shade);
        if (isBetween)
            drawAround(painter, baseline, line);
        else
            drawOutlines(painter, baseline, line);
        painter.restore();
    }
    painter.drawText(baseline, line);
}

void QVReadable::drawText(QPainter &painter, const QRectF &bounds, Qt::Alignment alignment,
                          const QString &line, const QColor &ground)
{
    const QFontMetricsF metrics(painter.font());
    const double free = bounds.width() - metrics.horizontalAdvance(line);
    double left = bounds.left();
    if (alignment & Qt::AlignHCenter)
        left += std::floor(free / 2);
    else if (alignment & Qt::AlignRight)
        left += free;
    const double top = bounds.top() + std::round((bounds.height() - metrics.height()) / 2);
    drawText(painter, QPointF(left, top + metrics.ascent()), line, ground);
}

void QVReadable::drawIcon(QPainter &painter, const QRectF &bounds, const QPixmap &icon, const QColor &color,
                          const QColor &ground)
{
    const QRectF source(icon.rect());
    if (const QColor shade = halo(color, ground, iconContrast); shade.isValid()) {
        QPixmap shadow = icon;
        QPainter filler(&shadow);
        filler.setCompositionMode(QPainter::CompositionMode_SourceIn);
        filler.fillRect(shadow.rect(), shade);
        filler.end();
        for (const QPointF offset : around)
            painter.drawPixmap(bounds.translated(offset), shadow, source);
    }
    painter.drawPixmap(bounds, icon, source);
}
