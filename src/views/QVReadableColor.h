#pragma once

#include <QColor>

/// \a text as it is painted on \a ground: as given, or where more contrast is wanted so much darker or
/// lighter that the two have a ratio of at least 4.5 : 1. A ground that is not opaque may lie over anything.
[[nodiscard]] QColor qv_readableColor(const QColor &text, const QColor &ground);
