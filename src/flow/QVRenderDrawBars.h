#pragma once

#include "flow/QVOverlaySurface.h"
#include "flow/QVRenderDrawImageViewDelegate.h"
#include "platform/QuarvoCoreExport.h"

#include <memory>
#include <optional>

/// Decides which of the three bars is shown, which may replace which, and how long the bar for a wrong answer
/// stays.
class QUARVO_CORE_EXPORT QVRenderDrawBars final : public std::enable_shared_from_this<QVRenderDrawBars>
{
public:
    using Bar = QVOverlaySurface::Bar;

    QVRenderDrawBars(QVOverlaySurface *surface, QVRenderDrawImageViewDelegate *delegate);

    /// The bar that counts as shown. Hiding any bar clears it, whichever bar that was.
    [[nodiscard]] std::optional<Bar> showView() const { return m_showView; }

    /// Does nothing while an error or a success is shown.
    void showPrompt(bool isCharVerify);
    void hiddenPrompt() { slideOut(Bar::Prompt); }
    /// Without \a canClicked the bar disappears by itself after a while.
    void showError(const QVText &message, bool canClicked);
    void hiddenError() { slideOut(Bar::Error); }
    void showSuccess(const QVText &text);
    void hiddenSuccess() { slideOut(Bar::Success); }
    void hiddernAll();

private:
    void hiddenDelayError();
    void slideIn(Bar bar, const QVText &text);
    void slideOut(Bar bar);

    const QVWeakDelegate<QVOverlaySurface> m_surface;
    const QVWeakDelegate<QVRenderDrawImageViewDelegate> m_delegate;
    std::optional<Bar> m_showView;
    /// Whether the latest error bar can be tapped.
    bool m_errorAcceptsTouches = false;
};
