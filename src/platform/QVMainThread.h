#pragma once

#include "platform/QuarvoCoreExport.h"

/// Stops a debug build when the component itself leaves the thread of the application object.
QUARVO_CORE_EXPORT void qv_assertMainThread();

/// Whether a host's call may go on: there is an application object, and the call is made in its thread.
/// Otherwise the log is warned of \a call, which is Q_FUNC_INFO. Every public call that does or changes
/// something begins with it.
QUARVO_CORE_EXPORT bool qv_mayCall(const char *call);

/// Whether there is a QApplication, which \a call needs for its widgets. Otherwise the log is warned, too.
[[nodiscard]] QUARVO_CORE_EXPORT bool qv_hasWidgets(const char *call);
