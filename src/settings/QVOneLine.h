#pragma once

#include "platform/QuarvoCoreExport.h"

class QString;

/// \a text, which may come from a server, as one line for the screen or a screen reader: without line breaks,
/// and cut off where no screen has room for more. Laying out a megabyte of text would stall the host.
[[nodiscard]] QUARVO_CORE_EXPORT QString qv_oneLine(const QString &text);
