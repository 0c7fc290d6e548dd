#pragma once

#include <QtGlobal>

/// Whether a picture of so many pixels is decoded. No captcha has more, at any ratio of a screen.
[[nodiscard]] constexpr bool qv_isPictureSizeAllowed(qint64 width, qint64 height)
{
    // Decoders need up to 12 bytes a pixel beside the picture's own four, and rows of their own.
    constexpr qint64 mostPixels = 4 << 20;
    constexpr qint64 longestSide = 8192;
    return width > 0 && height > 0 && width <= longestSide && height <= longestSide &&
           width * height <= mostPixels;
}
