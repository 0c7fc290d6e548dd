#pragma once

#include "flow/QVRenderDrawViewDelegate.h"
#include "flow/QVViewControllerDelegate.h"
#include "platform/QuarvoCoreExport.h"

#include <memory>

/// A popup of some toolkit: what its opener asks of it, and what becomes of it when the user closes it or
/// passes. It lives on by itself, shown or hidden, until it is dismissed; openers hold it weakly.
class QUARVO_CORE_EXPORT QVPopup : public QVRenderDrawViewDelegate,
                                   public std::enable_shared_from_this<QVPopup>
{
public:
    explicit QVPopup(QVViewControllerDelegate *delegate)
        : m_delegate(delegate)
    {
    }

    /// Changes who opened it; null while it is hidden and belongs to no attempt.
    void setDelegate(QVViewControllerDelegate *delegate) { m_delegate = delegate; }
    [[nodiscard]] QVViewControllerDelegate *delegate() const { return m_delegate.get(); }

    /// Shows it over its delegate's host.
    void displayWindow();
    /// The picture stays, for the next displayWindow().
    virtual void hiddenWindow() = 0;
    /// Ends the popup; it is never shown again.
    virtual void dismissWindow() = 0;
    /// Shows whether the opener has another way for users who cannot do what the picture asks.
    void showAlternative();
    /// Whether there is a picture to be shown again without asking the service.
    [[nodiscard]] virtual bool canDirectlyShow() const = 0;

    void closeButtonDidClickedAction();
    void renderDrawViewHasPassed() override;
    void renderDrawViewVerifySuccess(const QString &token) override;

protected:
    /// Shows the window over \a host, null for the main screen, and unfolds what is in it.
    virtual void makeKeyAndVisible(QObject *host) = 0;
    virtual void setOffersAlternative(bool offers) = 0;
    /// The window has gone while it was shown. The opener is told from the event loop: a window of the
    /// host may be in its destructor now, where the host's slots must not be called any more.
    void windowWasDestroyed() const;

private:
    QVWeakDelegate<QVViewControllerDelegate> m_delegate;
    int m_displays = 0;
};
