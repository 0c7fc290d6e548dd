#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QColor>

/// The colour in which \a text is painted on the background \a ground. If high contrast is wanted, it is made
/// darker or lighter until the contrast ratio is at least 4.5 : 1, otherwise it is unchanged. A translucent
/// \a ground may lie over any colour.
[[nodiscard]] QUARVO_CORE_EXPORT QColor qv_readableColor(const QColor &text, const QColor &ground);
