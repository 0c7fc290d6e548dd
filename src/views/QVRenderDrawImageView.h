#pragma once

#include "flow/QVOverlaySurface.h"
#include "flow/QVRenderDrawImageViewDelegate.h"
#include "layers/QVLayerHost.h"
#include "layout/QVLayout.h"
#include "platform/QVTimer.h"
#include "views/QVColors.h"
#include "views/QVScaledPicture.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class QVFocusRing;
class QVRenderDrawImageViewLoadingLayer;
class QVRenderDrawOverlayView;

/// The captcha's picture, with three dots while it is fetched and one of three bars that slide up
/// from under its bottom edge. It is told what to show and knows nothing of the service.
class QVRenderDrawImageView final : public QWidget
{
    Q_OBJECT

public:
    using Bar = QVOverlaySurface::Bar;

    explicit QVRenderDrawImageView(QWidget *parent = nullptr);
    ~QVRenderDrawImageView() override;

    /// Whether the captcha is the character kind.
    void setIsCharVerify(bool isCharVerify);
    void setDelegate(QVRenderDrawImageViewDelegate *delegate) { m_delegate = delegate; }

    [[nodiscard]] QImage image() const { return m_image; }
    [[nodiscard]] bool hasImage() const { return !m_image.isNull(); }
    /// Names a sibling that lies over the bottom edge where the picture is narrow, once.
    void setStrip(QWidget *strip);
    /// Shows a picture stretched into the bounds; a null one clears it. The former one is seen a moment
    /// longer, so that a next one that comes at once takes its place without a dark flash.
    void setImage(const QImage &image);

    [[nodiscard]] QVRenderDrawImageViewLoadingLayer &loadingLayer() const { return *m_loadingLayer; }
    [[nodiscard]] QVRenderDrawOverlayView *promptOverlayView() const { return m_promptOverlayView; }
    [[nodiscard]] QVRenderDrawOverlayView *errorOverlayView() const { return m_errorOverlayView; }
    [[nodiscard]] QVRenderDrawOverlayView *successOverlayView() const { return m_successOverlayView; }
    void showLoadingAnimation();
    void hiddenLoadingAnimation();
    void slideIn(Bar bar, const QVText &text, bool acceptsTouches);
    void slideOut(Bar bar);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QVRenderDrawOverlayView *addBar(const QString &name, const QColor &background, QVColors::Source text);
    void showNow(const QImage &image);
    void translate();
    void placeBar(QVRenderDrawOverlayView *bar);
    [[nodiscard]] QVRenderDrawOverlayView *view(Bar bar) const;
    void errorOverlayViewDidClickedAction();
    void keepClearOfStrip();

    QVWeakDelegate<QVRenderDrawImageViewDelegate> m_delegate;
    QImage m_image;
    /// What is seen.
    QVScaledPicture m_picture;
    QVTimer m_clearing;
    QVLayerHost m_layers;
    std::shared_ptr<QVRenderDrawImageViewLoadingLayer> m_loadingLayer;
    QVLayout m_layout;
    QVRenderDrawOverlayView *m_promptOverlayView;
    QVRenderDrawOverlayView *m_errorOverlayView;
    QVRenderDrawOverlayView *m_successOverlayView;
    QVFocusRing *m_focusRing;
    bool m_isCharVerify = false;
    bool m_isLoading = false;
    QPointer<QWidget> m_strip;
    /// How much of the bars' height the strip lies over.
    int m_coveredHeight = 0;
};
