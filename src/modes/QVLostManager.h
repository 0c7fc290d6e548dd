#pragma once

class QWidget;

/// Logs a warning if \a widget, whose \a manager is being destroyed, still exists a moment later. A host that
/// has kept the manager in a local variable would never receive its signals.
void qv_warnOfLostManager(const char *manager, const char *part, QWidget *widget);
