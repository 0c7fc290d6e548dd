#include "settings/QVReadableColor.h"

#include "settings/QVConfigurationManager.h"

#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <cmath>

// Ratios and luminances are those of the Web Content Accessibility Guidelines 2.1, level AA.

namespace {

constexpr double wantedContrast = 4.5;

double linear(float channel)
{
    const double value = channel;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    constexpr double flare = 0.05;
    // The list form of std::minmax returns values; the other one would return references to temporaries.
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + flare) / (darker + flare);
}

QColor mixed(const QColor &from, const QColor &to, double part)
{
    const auto channel = [part](float one, float other) {
        return static_cast<float>(one + (static_cast<double>(other) - one) * part);
    };
    return QColor::fromRgbF(channel(from.redF(), to.redF()), channel(from.greenF(), to.greenF()),
                            channel(from.blueF(), to.blueF()));
}

bool isReadable(const QColor &text, const QColor &ground)
{
    const double part = ground.alphaF();
    return std::min(contrast(text, mixed(Qt::black, ground, part)),
                    contrast(text, mixed(Qt::white, ground, part))) >= wantedContrast;
}

/// High-contrast palettes use only black and white for texts and their backgrounds, on buttons as well.
bool hasHighContrast(const QPalette &palette)
{
    constexpr double greatest = 20.9;
    return contrast(palette.color(QPalette::WindowText), palette.color(QPalette::Window)) > greatest &&
           contrast(palette.color(QPalette::ButtonText), palette.color(QPalette::Button)) > greatest;
}

bool isContrastWanted()
{
    const QVContrast chosen = QVConfigurationManager::sharedManager().contrast();
    return chosen == QVContrast::High ||
           (chosen == QVContrast::System && hasHighContrast(QGuiApplication::palette()));
}

} // namespace

QColor qv_readableColor(const QColor &text, const QColor &ground)
{
    if (!isContrastWanted())
        return text;
    constexpr double isLight = 0.4;
    constexpr int steps = 50;
    const QColor end = luminance(ground) > isLight ? Qt::black : Qt::white;
    for (int step = 0; step < steps; ++step) {
        const QColor candidate = mixed(text, end, step / double(steps));
        if (isReadable(candidate, ground))
            return candidate;
    }
    return end;
}
