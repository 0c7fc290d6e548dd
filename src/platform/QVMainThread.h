#pragma once

/// Stops a debug build when it is called outside the thread of the application object. Every public
/// call of the component begins with it.
void qv_assertMainThread();
