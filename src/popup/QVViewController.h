#pragma once

#include "flow/QVRenderDrawViewDelegate.h"
#include "flow/QVVerifyStyle.h"
#include "popup/QVViewControllerDelegate.h"

#include <QObject>
#include <QPointer>

#include <memory>

class QVClickResponseModel;
class QVCloseButton;
class QVConfigResponseModel;
class QVRenderDrawView;
class QVSupportLabel;
class QVUnfoldEffect;
class QVValueAnimation;
class QVWindow;
class QWidget;

/// The popup: a draw view with a close button on a window of its own.
///
/// The window keeps the controller alive and the controller points to its window, shown or hidden,
/// with no owner outside; only dismissWindow(), or the end of the host's window, parts the two.
/// Openers hold the controller weakly.
class QVViewController final : public QVRenderDrawViewDelegate,
                               public std::enable_shared_from_this<QVViewController>
{
public:
    using Config = std::shared_ptr<QVConfigResponseModel>;
    using Click = std::shared_ptr<QVClickResponseModel>;

    /// Creates and shows a popup. \a host is a widget in the window to cover; without one it is the
    /// active window.
    static std::shared_ptr<QVViewController> showQvWithVerifyStyle(QVVerifyStyle style, const Config &config,
                                                                   const Click &click,
                                                                   QVViewControllerDelegate *delegate,
                                                                   QWidget *host = nullptr);
    ~QVViewController() override;

    void displayWindow();
    /// The picture stays, for the next displayWindow().
    void hiddenWindow();
    /// Ends the popup; it is never shown again.
    void dismissWindow();
    /// Whether there is a picture to be shown again without asking the service.
    [[nodiscard]] bool canDirectlyShow() const;

    void showRenderViewAnimation();
    void closeButtonDidClickedAction();
    void renderDrawViewHasPassed() override;
    void renderDrawViewVerifySuccess(const QString &token) override;

    /// The host's window was closed or destroyed.
    void hostEnded();
    /// The window is being destroyed with the host's.
    void windowDestroyed();

private:
    QVViewController() = default;

    void showIn(QVWindow *window);
    void setupSubviews();
    void layoutSubviews();

    QVWeakDelegate<QVViewControllerDelegate> m_delegate;
    Config m_config;
    Click m_clickResp;
    QVVerifyStyle m_verifyStyle{};
    QPointer<QVRenderDrawView> m_renderView;
    QPointer<QVCloseButton> m_closeButton;
    QPointer<QVSupportLabel> m_supportLabel;
    QPointer<QVWindow> m_showWindow;
    QPointer<QVUnfoldEffect> m_unfold;
    std::unique_ptr<QVValueAnimation> m_unfoldAnimation;
    int m_displays = 0;
    /// Ends the window's connections with this controller.
    QObject m_context;
};
