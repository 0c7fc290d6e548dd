#pragma once

#include <QtGlobal>

/// Whether a picture of this size, in pixels, is decoded. No captcha is larger, on any screen.
[[nodiscard]] constexpr bool qv_isPictureSizeAllowed(qint64 width, qint64 height)
{
    // Decoders need up to 12 bytes a pixel beside the four of the picture, and memory for rows.
    constexpr qint64 mostPixels = 4 << 20;
    constexpr qint64 longestSide = 8192;
    return width > 0 && height > 0 && width <= longestSide && height <= longestSide &&
           width * height <= mostPixels;
}
