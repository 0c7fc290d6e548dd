#pragma once

#include <QImage>

#include <stop_token>

/// The picture in \a bytes, upright and ready to be painted. Null if they are not a picture, if it is too
/// large to be a captcha, or if \a stop was requested. Takes at most two seconds of processor time and,
/// beside the picture, 64 MiB. May be called on any thread.
[[nodiscard]] QImage qv_decodedImage(const QByteArray &bytes, const std::stop_token &stop = {});
/// Whether pictures of \a format can be decoded. Loads the plugin that decodes them.
[[nodiscard]] bool qv_decoderReads(const QByteArray &format);
