#pragma once

#include <QAccessible>

class QWidget;

/// Sets the role of one of the component's widgets for screen readers. It may be changed later.
/// QAccessible::NoRole hides the widget from screen readers, for parts of a control that has a name itself. A
/// button can be pressed with any role. Call this first in a constructor: Qt keeps the accessible interface
/// of a widget once it has been asked for.
void qv_setAccessibleRole(QWidget *widget, QAccessible::Role role);

/// Makes screen readers read \a widget out, which must have the role QAccessible::Notification. They read it
/// by themselves when it is shown; call this when its text changes while it is visible.
void qv_readOut(QWidget *widget);

/// Tells screen readers whether \a widget, which must have a role set as above, is busy.
void qv_setAccessibleBusy(QWidget *widget, bool busy);
