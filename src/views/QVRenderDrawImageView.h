#pragma once

#include "layers/QVLayerHost.h"
#include "layout/QVLayout.h"
#include "platform/QVDelegate.h"
#include "views/QVRenderDrawImageViewDelegate.h"
#include "views/QVScaledPicture.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class QVError;
class QVRenderDrawImageViewLoadingLayer;
class QVRenderDrawOverlayView;
class QVVerifyResponseModel;

/// The captcha's picture, with three dots while it is fetched and one of three bars that slide up
/// from under its bottom edge. It is told what to show and knows nothing of the service.
class QVRenderDrawImageView final : public QWidget
{
    Q_OBJECT

public:
    explicit QVRenderDrawImageView(QWidget *parent = nullptr);
    ~QVRenderDrawImageView() override;

    /// Whether the captcha is the character kind, which has a prompt of its own.
    [[nodiscard]] bool isCharVerify() const { return m_isCharVerify; }
    void setIsCharVerify(bool isCharVerify);
    [[nodiscard]] QVRenderDrawImageViewDelegate *delegate() const { return m_delegate.get(); }
    void setDelegate(QVRenderDrawImageViewDelegate *delegate) { m_delegate = delegate; }

    [[nodiscard]] QImage image() const { return m_picture.image(); }
    [[nodiscard]] bool hasImage() const { return !m_picture.image().isNull(); }
    /// Names a sibling that lies over the bottom edge where the picture is narrow, once.
    void setStrip(QWidget *strip);
    /// Shows a picture stretched into the bounds; a null one clears it.
    void setImage(const QImage &image);

    [[nodiscard]] QVRenderDrawImageViewLoadingLayer &loadingLayer() const { return *m_loadingLayer; }
    [[nodiscard]] QVRenderDrawOverlayView *promptOverlayView() const { return m_promptOverlayView; }
    [[nodiscard]] QVRenderDrawOverlayView *errorOverlayView() const { return m_errorOverlayView; }
    [[nodiscard]] QVRenderDrawOverlayView *successOverlayView() const { return m_successOverlayView; }
    /// The bar that counts as shown. Hiding any bar clears it, whichever bar that was.
    [[nodiscard]] QVRenderDrawOverlayView *showView() const { return m_showView; }

    void showLoadingAnimation();
    void hiddenLoadingAnimation();
    /// Does nothing while an error or a success is shown.
    void showPrompt();
    void hiddenPrompt();
    /// Shows the error's domain. One that cannot be clicked goes by itself after a while.
    void showError(const QVError &error, bool canClicked);
    void hiddenError();
    /// Hides an error that cannot be clicked and says so to the delegate.
    void hiddenDelayError();
    void showSuccess(const QVVerifyResponseModel &answer);
    void hiddenSuccess();
    void hiddernAll();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QVRenderDrawOverlayView *addBar(const QString &name, const QColor &background, const QColor &text);
    void moveBar(QVRenderDrawOverlayView *bar, int offset, QVLayout::Completion completion);
    void slideIn(QVRenderDrawOverlayView *bar, QVLayout::Completion completion = {});
    void slideOut(QVRenderDrawOverlayView *bar);
    void errorOverlayViewDidClickedAction();
    void keepClearOfStrip();
    void scheduleHiddenDelayError();

    QVWeakDelegate<QVRenderDrawImageViewDelegate> m_delegate;
    QVScaledPicture m_picture;
    QVLayerHost m_layers;
    std::shared_ptr<QVRenderDrawImageViewLoadingLayer> m_loadingLayer;
    QVLayout m_layout;
    QVRenderDrawOverlayView *m_promptOverlayView;
    QVRenderDrawOverlayView *m_errorOverlayView;
    QVRenderDrawOverlayView *m_successOverlayView;
    QVRenderDrawOverlayView *m_showView = nullptr;
    QPointer<QWidget> m_strip;
    /// How much of the bars' height the strip lies over.
    int m_coveredHeight = 0;
    bool m_isCharVerify = false;
};
