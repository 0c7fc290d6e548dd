#pragma once

#include "flow/QVIdentity.h"
#include "platform/QVDelegate.h"
#include "platform/QVError.h"

#include <QString>

#include <memory>

class QObject;
class QVPopup;

/// What the popup asks of its opener and tells it.
class QVViewControllerDelegate : public QVDelegate
{
public:
    /// The window that the popup belongs to, in its toolkit's class; null for the main screen.
    [[nodiscard]] virtual QObject *qv_controllerHost() const = 0;
    /// For whom the popup asks the service.
    [[nodiscard]] virtual QVIdentity qv_controllerIdentity() const = 0;

    /// The popup is about to be shown, which moves the focus.
    virtual void qv_controllerShowAction(const std::shared_ptr<QVPopup> &popup) = 0;
    /// The trace was accepted; the token comes once the user has seen that.
    virtual void qv_controllerPassedAction() = 0;
    /// The trace was accepted a second ago; comes before the popup is dismissed.
    virtual void quarvoControllerVerifySuccessWithToken(const QString &token) = 0;
    /// The user closed the popup; comes before it is hidden or dismissed.
    virtual void qv_controllerCloseAction() = 0;
    /// The popup was destroyed together with a window that it lay in.
    virtual void qv_controllerDestroyedAction() = 0;
    /// The outage service takes over.
    virtual void qv_controllerOutageAction() = 0;
    /// Whether the host has another way for users who cannot do what the picture asks.
    [[nodiscard]] virtual bool qv_controllerOffersAlternative() const { return false; }
    /// The user asks for that other way.
    virtual void qv_controllerAlternativeAction() {}
    /// Something failed, as the popup shows it; the user may try again.
    virtual void qv_controllerFailedAction(const QVError &error) = 0;
};
