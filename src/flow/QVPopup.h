#pragma once

class QVViewControllerDelegate;

/// A popup of some toolkit, as its opener sees it. It lives on by itself, shown or hidden, until it is
/// dismissed; openers hold it weakly.
class QVPopup
{
public:
    virtual ~QVPopup() = default;

    /// Changes who opened it; null while it is hidden and nobody's.
    virtual void setDelegate(QVViewControllerDelegate *delegate) = 0;
    /// Shows it over its delegate's host.
    virtual void displayWindow() = 0;
    /// The picture stays, for the next displayWindow().
    virtual void hiddenWindow() = 0;
    /// Ends the popup; it is never shown again.
    virtual void dismissWindow() = 0;
    /// Whether there is a picture to be shown again without asking the service.
    [[nodiscard]] virtual bool canDirectlyShow() const = 0;
};
