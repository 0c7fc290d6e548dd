#pragma once

#include "platform/QVDelegate.h"

#include <QString>

/// What the popup tells its opener.
class QVViewControllerDelegate : public QVDelegate
{
public:
    /// The trace was accepted; the token comes once the user has seen that.
    virtual void qv_controllerPassedAction() {}
    /// The trace was accepted a second ago; comes before the popup is dismissed.
    virtual void quarvoControllerVerifySuccessWithToken(const QString &token) = 0;
    /// The user, or the end of the host's window, closed the popup; comes before it is hidden or dismissed.
    virtual void qv_controllerCloseAction() = 0;
    /// The outage service takes over.
    virtual void qv_controllerOutageAction() {}
};
