#pragma once

#include "flow/QVPopup.h"
#include "flow/QVVerifyStyle.h"

#include <QObject>
#include <QPointer>

#include <memory>

class QVClickResponseModel;
class QVCloseButton;
class QVConfigResponseModel;
class QVLabel;
class QVRenderDrawView;
class QVUnfoldEffect;
class QVValueAnimation;
class QVWindow;

/// The popup: a draw view with a close button on a QVWindow.
///
/// The window owns the controller, whether it is shown or hidden. Both are destroyed by dismissWindow(), or
/// together with a window of the host that contains the popup.
class QVViewController final : public QVPopup
{
public:
    using Config = std::shared_ptr<QVConfigResponseModel>;
    using Click = std::shared_ptr<QVClickResponseModel>;

    /// Creates and shows a popup over the host of \a delegate.
    static std::shared_ptr<QVViewController> showQvWithVerifyStyle(QVVerifyStyle style, const Config &config,
                                                                   const Click &click,
                                                                   QVViewControllerDelegate *delegate);
    ~QVViewController() override;

    void hiddenWindow() override;
    void dismissWindow() override;
    [[nodiscard]] bool canDirectlyShow() const override;

private:
    using QVPopup::QVPopup;

    void makeKeyAndVisible(QObject *host) override;
    void setOffersAlternative(bool offers) override;
    void showRenderViewAnimation();
    void showIn(QVWindow *window);
    void setupSubviews();
    void layoutSubviews();
    void windowDestroyed();

    Config m_config;
    Click m_clickResp;
    QVVerifyStyle m_verifyStyle{};
    QPointer<QVRenderDrawView> m_renderView;
    QPointer<QVCloseButton> m_closeButton;
    QPointer<QVLabel> m_supportLabel;
    QPointer<QVWindow> m_showWindow;
    QPointer<QVUnfoldEffect> m_unfold;
    std::unique_ptr<QVValueAnimation> m_unfoldAnimation;
    /// The context of the window's connections, which end with this controller.
    QObject m_context;
};
