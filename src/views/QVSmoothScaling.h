#pragma once

#include <QImage>

/// \a image stretched to \a size smoothly, without the threads of the process's pool: Qt waits for them
/// behind whatever the host has them do.
[[nodiscard]] QImage qv_smoothlyScaled(const QImage &image, QSize size);
