#pragma once

#include <QFont>

/// The application's font, upright and regular, in logical pixels. Painting with it instead of the
/// widget's own font keeps a host's style sheet out.
[[nodiscard]] QFont qv_systemFont(int pixelSize);
