#pragma once

#include "flow/QVRenderDrawViewDelegate.h"
#include "flow/QVViewControllerDelegate.h"
#include "platform/QuarvoCoreExport.h"

#include <memory>

/// A popup, independent of the toolkit: the functions for its opener, and the reactions when the user closes
/// it or passes. It owns itself, shown or hidden, until it is dismissed. Openers hold it weakly.
class QUARVO_CORE_EXPORT QVPopup : public QVRenderDrawViewDelegate,
                                   public std::enable_shared_from_this<QVPopup>
{
public:
    explicit QVPopup(QVViewControllerDelegate *delegate)
        : m_delegate(delegate)
    {
    }

    /// Changes its opener; null while it is hidden and belongs to no attempt.
    void setDelegate(QVViewControllerDelegate *delegate) { m_delegate = delegate; }
    [[nodiscard]] QVViewControllerDelegate *delegate() const { return m_delegate.get(); }

    /// Shows the popup over its delegate's host.
    void displayWindow();
    /// Hides the popup. The picture is kept for the next displayWindow().
    virtual void hiddenWindow() = 0;
    /// Ends the popup; it is never shown again.
    virtual void dismissWindow() = 0;
    /// Shows or hides the button for another way, as the opener offers one or not.
    void showAlternative();
    /// Whether there is a picture that can be shown again without a request.
    [[nodiscard]] virtual bool canDirectlyShow() const = 0;

    void closeButtonDidClickedAction();
    void renderDrawViewHasPassed() override;
    void renderDrawViewVerifySuccess(const QString &token) override;

protected:
    /// Shows the window over \a host, or over the main screen if that is null, and unfolds its contents.
    virtual void makeKeyAndVisible(QObject *host) = 0;
    virtual void setOffersAlternative(bool offers) = 0;
    // What its opener hears of the conversation in it.
    void outageHasStarted() const;
    void somethingHasFailed(const QVError &error) const;
    void alternativeIsWanted() const;
    /// Call when the window was destroyed while it was shown. The opener is notified from the event loop: a
    /// window of the host may be in its destructor now, when the host's slots must not be called any more.
    void windowWasDestroyed() const;

private:
    QVWeakDelegate<QVViewControllerDelegate> m_delegate;
    int m_displays = 0;
};
