#include "flow/QVPopup.h"

#include "platform/QVScheduler.h"

void QVPopup::displayWindow()
{
    const auto self = shared_from_this();
    ++m_displays;
    auto *const opener = delegate();
    if (opener)
        opener->qv_controllerShowAction(self);
    showAlternative();
    makeKeyAndVisible(opener ? opener->qv_controllerHost() : nullptr);
}

void QVPopup::showAlternative()
{
    const auto *const opener = delegate();
    setOffersAlternative(opener && opener->qv_controllerOffersAlternative());
}

void QVPopup::closeButtonDidClickedAction()
{
    const auto self = shared_from_this();
    const int displays = m_displays;
    if (auto *const opener = delegate())
        opener->qv_controllerCloseAction();
    // In the callback the host may have started the next attempt, which shows this popup again.
    if (m_displays != displays)
        return;
    if (canDirectlyShow())
        hiddenWindow();
    else
        dismissWindow();
}

void QVPopup::renderDrawViewHasPassed()
{
    if (auto *const opener = delegate())
        opener->qv_controllerPassedAction();
}

void QVPopup::renderDrawViewVerifySuccess(const QString &token)
{
    const auto self = shared_from_this();
    if (auto *const opener = delegate())
        opener->quarvoControllerVerifySuccessWithToken(token);
    dismissWindow();
}

void QVPopup::outageHasStarted() const
{
    if (auto *const opener = delegate())
        opener->qv_controllerOutageAction();
}

void QVPopup::somethingHasFailed(const QVError &error) const
{
    if (auto *const opener = delegate())
        opener->qv_controllerFailedAction(error);
}

void QVPopup::alternativeIsWanted() const
{
    if (auto *const opener = delegate())
        opener->qv_controllerAlternativeAction();
}

void QVPopup::windowWasDestroyed() const
{
    QVScheduler::shared().schedule({}, [weak = m_delegate] {
        if (auto *const opener = weak.get())
            opener->qv_controllerDestroyedAction();
    });
}
