#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QString>

/// The text for a key in the language of the settings; \a value, or without one the key itself,
/// where that language lacks it. Null where the language has no folder at all.
[[nodiscard]] QUARVO_CORE_EXPORT QString qv_localizedStringForKey(const QString &key,
                                                                  const QString &value = QString());
