#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QImage>

/// Scales \a image smoothly to \a size. Qt's own function would wait for the threads of its global pool,
/// which may be busy with the host's work.
[[nodiscard]] QUARVO_CORE_EXPORT QImage qv_smoothlyScaled(const QImage &image, QSize size);
