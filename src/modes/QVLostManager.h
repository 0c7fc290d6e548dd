#pragma once

class QWidget;

/// Warns in the log if \a widget, whose \a manager is being destroyed, is still there a moment later: a host
/// that kept the manager in a local variable would wait for its signals in vain.
void qv_warnOfLostManager(const char *manager, const char *part, QWidget *widget);
