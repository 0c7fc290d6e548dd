#pragma once

#include <QAccessible>

class QWidget;

/// Tells screen readers what a widget of our own is, where its class does not say so by itself. May
/// change. Faces of a control that has a name of its own are best QAccessible::NoRole: they are passed
/// over. A button can still be pressed whatever it is called. To be called first in a constructor: what
/// has been looked at before stays what it was.
void qv_setAccessibleRole(QWidget *widget, QAccessible::Role role);

/// Has a message read out: a widget of the role QAccessible::Notification, which says what has just happened.
/// Being shown has it read out already; this is for what was there before and says something else now.
void qv_readOut(QWidget *widget);

/// Tells them that a widget with such a role is at work, and that it is not any more.
void qv_setAccessibleBusy(QWidget *widget, bool busy);
