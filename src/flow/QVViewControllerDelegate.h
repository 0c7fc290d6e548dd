#pragma once

#include "flow/QVIdentity.h"
#include "platform/QVDelegate.h"
#include "platform/QVError.h"

#include <QString>

#include <memory>

class QObject;
class QVPopup;

/// The calls of the popup to its opener.
class QVViewControllerDelegate : public QVDelegate
{
public:
    /// The window that the popup belongs to, an object of the toolkit's class. Null for the main screen.
    [[nodiscard]] virtual QObject *qv_controllerHost() const = 0;
    /// The id and the scene of the popup's requests.
    [[nodiscard]] virtual QVIdentity qv_controllerIdentity() const = 0;

    /// The popup is about to be shown, which moves the focus.
    virtual void qv_controllerShowAction(const std::shared_ptr<QVPopup> &popup) = 0;
    /// The trace was accepted. The token follows a second later, so that the user sees that first.
    virtual void qv_controllerPassedAction() = 0;
    /// The trace was accepted a second ago. Called before the popup is dismissed.
    virtual void quarvoControllerVerifySuccessWithToken(const QString &token) = 0;
    /// The user has closed the popup. Called before it is hidden or dismissed.
    virtual void qv_controllerCloseAction() = 0;
    /// The popup was destroyed together with a window that contained it.
    virtual void qv_controllerDestroyedAction() = 0;
    /// The outage service replaces the main one.
    virtual void qv_controllerOutageAction() = 0;
    /// Whether the host has another way for users who cannot do what the picture asks.
    [[nodiscard]] virtual bool qv_controllerOffersAlternative() const { return false; }
    /// The user asks for that other way.
    virtual void qv_controllerAlternativeAction() {}
    /// Something failed. The popup shows the message, and the user can try again.
    virtual void qv_controllerFailedAction(const QVError &error) = 0;
};
