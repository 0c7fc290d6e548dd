#pragma once

#include <QImage>

#include <stop_token>

/// The picture in \a bytes, upright and ready to be painted; null where they are no picture, or one
/// too large to be a captcha, or \a stop was requested. Takes two seconds of processor time and,
/// beside the picture, 64 MiB at most. May run on any thread.
[[nodiscard]] QImage qv_decodedImage(const QByteArray &bytes, const std::stop_token &stop = {});
/// Whether pictures of a format can be decoded here. Loads what decodes them.
[[nodiscard]] bool qv_decoderReads(const QByteArray &format);
