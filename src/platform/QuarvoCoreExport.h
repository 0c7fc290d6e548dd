#pragma once

#include "platform/QuarvoExport.h"

/// Marks what the project's other libraries use of the core's internals. Hosts must not use it: these symbols
/// have a separate version that says private.
#define QUARVO_CORE_EXPORT QUARVO_EXPORT
