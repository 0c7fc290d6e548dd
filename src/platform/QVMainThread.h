#pragma once

#include "platform/QuarvoCoreExport.h"

/// Asserts that the component's own code runs on the thread of the application object.
QUARVO_CORE_EXPORT void qv_assertMainThread();

/// Whether a call by the host is allowed: there is an application object, and the call is made on its thread.
/// Otherwise logs a warning with the name \a call, which is Q_FUNC_INFO. Every public function that does or
/// changes something checks this first.
QUARVO_CORE_EXPORT bool qv_mayCall(const char *call);

/// Whether there is a QApplication, which \a call needs for its widgets. Otherwise logs a warning, too.
[[nodiscard]] QUARVO_CORE_EXPORT bool qv_hasWidgets(const char *call);
