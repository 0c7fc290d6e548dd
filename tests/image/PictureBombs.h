#pragma once

#include <QByteArray>
#include <QImage>

/// Small files that cost a decoder much, and files at the limits of what is decoded.
namespace PictureBombs {

/// The most pixels that are decoded.
inline constexpr QSize limit{2048, 2048};

/// A PNG file of \a size and \a depth bits a channel, with \a chunks in front of its pixels. The pixels go
/// on for \a surplus bytes behind the last row.
[[nodiscard]] QByteArray png(QSize size, int depth, const QByteArray &chunks = {}, qsizetype surplus = 0);
/// Texts that unpack to \a bytes each.
[[nodiscard]] QByteArray packedTexts(qsizetype bytes, int count);

/// A progressive JPEG file whose last scan is repeated, so that it has \a scans.
[[nodiscard]] QByteArray jpeg(QSize size, int scans);
/// \a file with an application segment behind its start.
[[nodiscard]] QByteArray withSegment(const QByteArray &file, char marker, const QByteArray &content);

/// A GIF file of \a frames frames, in each of which \a codes more codes follow behind the codes of its
/// first pixel: each stands for thousands of pixels.
[[nodiscard]] QByteArray gif(QSize size, QSize frame, qsizetype codes, int frames);

/// A WebP file whose pixels have \a groups groups of codes.
[[nodiscard]] QByteArray webP(QSize size, int groups);
/// A lossy WebP file whose transparency has them.
[[nodiscard]] QByteArray webPAlpha(QSize size, int groups);
/// An animation whose \a frames are files of \a size each.
[[nodiscard]] QByteArray webPAnimation(QSize size, const QList<QByteArray> &frames);

} // namespace PictureBombs
