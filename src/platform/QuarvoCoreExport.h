#pragma once

#include "platform/QuarvoExport.h"

/// Marks what the project's other libraries use of the core's inside. No host may: it is exported under a
/// version of its own that says private.
#define QUARVO_CORE_EXPORT QUARVO_EXPORT
