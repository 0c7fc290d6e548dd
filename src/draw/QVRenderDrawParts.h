#pragma once

#include "flow/QVRenderDrawSurface.h"
#include "flow/QVVerifyStyle.h"

#include <QRectF>

class QVAdButton;
class QVAlternativeButton;
class QVCharVerifyInputView;
class QVCustomActionButton;
class QVKeyPen;
class QVLabel;
class QVPanEventFilter;
class QVPanGestureRecognizer;
class QVRenderDrawImageView;
class QVRenderDrawLayout;
class QVRenderStrokeView;
class QVSpokenMessage;
class QWidget;

/// The parts of a drawing captcha on screen: the picture with its bars, caption, buttons, outage label,
/// advertisement, character input and stroke. It only shows what the flow sets, and passes on pointers and
/// keys; QVRenderDrawView does the rest.
class QVRenderDrawParts final : public QVRenderDrawSurface
{
public:
    /// The parts become children of \a view.
    explicit QVRenderDrawParts(QWidget *view);
    ~QVRenderDrawParts() override;

    /// Creates the parts and places them.
    void initRenders(QVVerifyStyle style);
    /// From then on \a recognizer receives what the user does on the picture.
    void initGesture(QVPanGestureRecognizer &recognizer);
    /// Call when the view has another size.
    void layoutSubviews();
    /// Notes that the view is shown as a window of its own. Returns whether that is the first time.
    [[nodiscard]] bool noteShownAlone();

    [[nodiscard]] QVRenderDrawImageView &imageView() const { return *m_imageView; }
    [[nodiscard]] QVCharVerifyInputView &charInputView() const { return *m_charInputView; }
    [[nodiscard]] QVCustomActionButton &helpButton() const { return *m_helpButton; }
    [[nodiscard]] QVCustomActionButton &refreshButton() const { return *m_refreshButton; }
    [[nodiscard]] QVAlternativeButton &alternativeButton() const { return *m_alternativeButton; }
    /// Shows the button for another way, or hides it and removes its height.
    void setAlternativeShown(bool shown);
    /// The height of that button; 0 if it is hidden.
    [[nodiscard]] int alternativeHeight() const;
    void spinRefreshButton();

    [[nodiscard]] bool hasSuperview() const override;
    void showLoadingAnimation() override;
    void hiddenLoadingAnimation() override;
    void setPicture(const QVPicture &picture) override;
    [[nodiscard]] QSize pictureSize() const override;
    void clearPicture() override;
    void showFailedPicture() override;
    [[nodiscard]] bool hasPicture() const override;
    void slideIn(Bar bar, const QVText &text, bool acceptsTouches) override;
    void slideOut(Bar bar) override;
    void updateContentWidthHeightQVVerifyPercentage(bool isCharVerify) override;
    void setCaption(const QVText &caption) override;
    void setHelpButtonShown(bool shown) override;
    void setRefreshButtonShown(bool shown) override;
    void setRefreshButtonEnabled(bool enabled) override;
    void setOutage(bool outage) override;
    void setAdLinkword(const std::shared_ptr<QVGetRefreshResponseModel> &answer) override;
    void setCharInputBusy(bool busy) override;
    void pictureHasExpired() override;
    void setDrawingEnabled(bool enabled) override;
    [[nodiscard]] bool isSeen() const override;
    [[nodiscard]] QRectF traceFrame() const override;
    [[nodiscard]] QRectF imageFrame() const override;
    void beginStroke(QPointF location) override;
    void extendStroke(QPointF location) override;
    void resetUIs() override;

private:
    /// The width of a popup's content.
    [[nodiscard]] double contentViewWidth() const;
    void placeStroke();
    void initContent();
    void initControls();
    QVLabel &outageLabel();
    QVAdButton &adButton();

    QWidget *m_view;
    QWidget *m_contentView = nullptr;
    QVRenderDrawImageView *m_imageView = nullptr;
    QVCharVerifyInputView *m_charInputView = nullptr;
    QVLabel *m_captchaLabel = nullptr;
    QVText m_caption;
    QVCustomActionButton *m_helpButton = nullptr;
    QVCustomActionButton *m_refreshButton = nullptr;
    QVAlternativeButton *m_alternativeButton = nullptr;
    QVLabel *m_outageLabel = nullptr;
    QVSpokenMessage *m_spokenMessage = nullptr;
    QVRenderStrokeView *m_renderLayer = nullptr;
    bool m_isShownAlone = false;
    // It has no parent after it was removed from the picture.
    std::unique_ptr<QVAdButton> m_adButton;
    std::unique_ptr<QVRenderDrawLayout> m_layout;
    // Not children of the view: they must not report anything to the flow while the view is destroyed.
    std::unique_ptr<QVPanEventFilter> m_events;
    std::unique_ptr<QVKeyPen> m_keyPen;
};
