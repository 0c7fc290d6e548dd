#pragma once

#include <QAccessible>

class QWidget;

/// Tells screen readers what a widget of our own is, where its class does not say so by itself. May
/// change. Faces of a control that has a name of its own are best QAccessible::NoRole: they are passed
/// over. A button can still be pressed whatever it is called. To be called first in a constructor: what
/// has been looked at before stays what it was.
void qv_setAccessibleRole(QWidget *widget, QAccessible::Role role);

/// Tells them that a widget with such a role is at work, and that it is not any more.
void qv_setAccessibleBusy(QWidget *widget, bool busy);
