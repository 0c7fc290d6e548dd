#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QFont>

/// How much larger than usual the platform's text is, from 1 to 2. So the choice of users with weak sight
/// applies here, too.
[[nodiscard]] QUARVO_CORE_EXPORT double qv_textScale();

/// The application's font, upright and of normal weight. \a pixelSize is in logical pixels and is multiplied
/// by qv_textScale(). Unlike the font of a widget, it is not affected by a host's style sheet.
[[nodiscard]] QUARVO_CORE_EXPORT QFont qv_systemFont(int pixelSize);
