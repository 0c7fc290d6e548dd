#pragma once

#include "flow/QVVerifyStyle.h"

#include <QSizeF>

#include <algorithm>
#include <chrono>

/// The measures of the captcha on screen, in logical pixels, whatever shows it.
namespace QVDrawGeometry {

/// As wide as a phone, on which the service expects traces to be drawn.
inline constexpr int widestContent = 414;
/// The height of the picture divided by its width.
inline constexpr double pictureAspect = 0.575;
/// The strip for characters, which lies over the lower edge of the content.
inline constexpr int inputHeight = 40;
inline constexpr int captionGap = 10;
/// At each end of the caption, for the popup's close button and a gap.
inline constexpr int closeButtonRoom = 40;
/// Of the buttons for help and for another picture.
inline constexpr int controlSide = 30;
/// On the narrowest picture, 200 points, it leaves these buttons their places.
inline constexpr int widestBadge = 135;
/// Between the hint for the keyboard and the edges of the picture, or a bar below the hint.
inline constexpr int penHintMargin = 6;
/// The button for another way, below the content.
inline constexpr int alternativeHeight = 30;
/// How long the content takes to make room for characters.
inline constexpr std::chrono::milliseconds changeDuration{200};
/// How long the button for another picture turns.
inline constexpr std::chrono::milliseconds spinDuration{300};

/// The height of the content divided by its width.
[[nodiscard]] constexpr double contentAspect(bool isCharVerify)
{
    return isCharVerify ? 0.675 : pictureAspect;
}

/// How wide the content of an embedded view is: as wide as the view, or as fits into its height.
[[nodiscard]] constexpr double embeddedWidth(QSizeF view, bool isCharVerify, double belowContent)
{
    return std::min(view.width(), (view.height() - belowContent) / contentAspect(isCharVerify));
}

/// How far the middle of the content lies above that of the view.
[[nodiscard]] constexpr double contentLift(QVVerifyStyle style, double belowContent)
{
    // In a popup the button takes of the room below, but leaves the support label its own.
    return belowContent / (style == QVVerifyStyleEmbed ? 2 : 4);
}

} // namespace QVDrawGeometry
