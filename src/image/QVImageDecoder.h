#pragma once

#include <QImage>

/// The picture in \a bytes, upright and ready to be painted; null where they are no picture or one
/// too large to be a captcha. May run on any thread.
[[nodiscard]] QImage qv_decodedImage(const QByteArray &bytes);
/// Whether pictures of a format can be decoded here. Loads what decodes them.
[[nodiscard]] bool qv_decoderReads(const QByteArray &format);
