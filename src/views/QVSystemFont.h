#pragma once

#include <QFont>

/// How much larger than usual the platform shows text, from 1 to 2: what people with weak sight choose
/// there holds here too.
[[nodiscard]] double qv_textScale();

/// The application's font, upright and regular; \a pixelSize is in logical pixels where the platform's
/// text has its usual size. Painting with it instead of the widget's own font keeps a host's style
/// sheet out.
[[nodiscard]] QFont qv_systemFont(int pixelSize);
