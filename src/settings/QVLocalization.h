#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QString>

/// The text for a key in the language of the settings. If that language lacks the key, \a value; if that is
/// null or empty, the key itself. Null if there is no folder for the language.
[[nodiscard]] QUARVO_CORE_EXPORT QString qv_localizedStringForKey(const QString &key,
                                                                  const QString &value = QString());
