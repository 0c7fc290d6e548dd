#pragma once

#include "platform/QuarvoCoreExport.h"

/// Stops a debug build when it is called outside the thread of the application object. Every public
/// call of the component begins with it.
QUARVO_CORE_EXPORT void qv_assertMainThread();
