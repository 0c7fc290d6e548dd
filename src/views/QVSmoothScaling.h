#pragma once

#include <QImage>

/// Scales \a image smoothly to \a size. Qt's own function would wait for the threads of its global pool,
/// which may be busy with the host's work.
[[nodiscard]] QImage qv_smoothlyScaled(const QImage &image, QSize size);
