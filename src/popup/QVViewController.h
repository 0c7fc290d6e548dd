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

/// The popup: a draw view with a close button on a window of its own.
///
/// The window owns the controller, shown or hidden, and is owned by nobody else. Both are destroyed by
/// dismissWindow(), or with a window that this one lies in.
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
    /// Ends the window's connections with this controller.
    QObject m_context;
};
