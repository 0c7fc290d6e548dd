#pragma once

#include <QByteArray>
#include <QImage>

/// Small files that are expensive to decode, and files at the limits of what is decoded.
namespace PictureBombs {

/// The largest picture that is decoded.
inline constexpr QSize limit{2048, 2048};

/// A PNG file of \a size with \a depth bits per channel and \a chunks before its pixels. The pixel data go on
/// for \a surplus bytes after the last row.
[[nodiscard]] QByteArray png(QSize size, int depth, const QByteArray &chunks = {}, qsizetype surplus = 0);
/// \a count text chunks that unpack to \a bytes each.
[[nodiscard]] QByteArray packedTexts(qsizetype bytes, int count);

/// A progressive JPEG file whose last scan is repeated, so that it has \a scans.
[[nodiscard]] QByteArray jpeg(QSize size, int scans);
/// \a file with an additional application segment at its start.
[[nodiscard]] QByteArray withSegment(const QByteArray &file, char marker, const QByteArray &content);

/// A GIF file of \a frames frames. In each, the first pixel is followed by \a codes codes, each of which
/// stands for up to thousands of pixels.
[[nodiscard]] QByteArray gif(QSize size, QSize frame, qsizetype codes, int frames);

/// A WebP file whose pixels have \a groups groups of codes.
[[nodiscard]] QByteArray webP(QSize size, int groups);
/// A lossy WebP file whose transparency has \a groups groups of codes.
[[nodiscard]] QByteArray webPAlpha(QSize size, int groups);
/// A WebP animation of \a frames, each a file of \a size.
[[nodiscard]] QByteArray webPAnimation(QSize size, const QList<QByteArray> &frames);

} // namespace PictureBombs
