#pragma once

#include "flow/QVOverlaySurface.h"
#include "flow/QVRenderDrawImageViewDelegate.h"
#include "layers/QVLayerHost.h"
#include "layout/QVLayout.h"
#include "paint/QVScaledPicture.h"
#include "platform/QVTimer.h"
#include "settings/QVColors.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class QVFocusRing;
class QVRenderDrawImageViewLoadingLayer;
class QVRenderDrawOverlayView;

/// The captcha's picture, with three dots while it is loaded, and three bars, of which one at a time slides
/// up from its bottom edge. It does not know the service.
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
    /// Sets a sibling that may cover the bottom edge of a narrow picture. Call this once.
    void setStrip(QWidget *strip);
    /// Shows a picture, stretched to the size of the widget. A null picture clears it after a moment, so that
    /// a picture that follows at once replaces the former one without a dark flash.
    /// \a scaled is the same in the size in which it is painted, if somebody has made it already.
    void setImage(const QImage &image, const QImage &scaled = {});

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
    void changeEvent(QEvent *event) override;

private:
    QVRenderDrawOverlayView *addBar(const QString &name, const QColor &background, QVColors::Source text);
    void showNow(const QImage &image, const QImage &scaled);
    void translate();
    void placeBar(QVRenderDrawOverlayView *bar);
    [[nodiscard]] QVRenderDrawOverlayView *view(Bar bar) const;
    void errorOverlayViewDidClickedAction();
    void keepClearOfStrip();

    QVWeakDelegate<QVRenderDrawImageViewDelegate> m_delegate;
    QImage m_image;
    /// The picture on screen.
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
    /// The height that the strip covers of the bars.
    int m_coveredHeight = 0;
};
