#pragma once

#include "flow/QVRenderDrawSurface.h"
#include "flow/QVVerifyStyle.h"

#include <QRectF>

class QVAdButton;
class QVAlternativeButton;
class QVCharVerifyInputView;
class QVCustomActionButton;
class QVLabel;
class QVRenderDrawImageView;
class QVRenderDrawLayout;
class QVSpokenMessage;
class QWidget;

/// What a drawing captcha is made of on screen: the picture with its bars, caption, buttons, badge,
/// advertisement and character input. Shows what it is told to; the view that it is in does the rest.
class QVRenderDrawParts : public QVRenderDrawSurface
{
public:
    ~QVRenderDrawParts() override;

    void showLoadingAnimation() override;
    void hiddenLoadingAnimation() override;
    void setPicture(const QImage &picture) override;
    void clearPicture() override;
    void showFailedPicture() override;
    [[nodiscard]] bool hasPicture() const override;
    void slideIn(Bar bar, const QVText &text, bool acceptsTouches) override;
    void slideOut(Bar bar) override;
    void setIsCharVerify(bool isCharVerify) override;
    void updateContentWidthHeightQVVerifyPercentage(bool isCharVerify) override;
    void setCaption(const QVText &caption) override;
    void setHelpButtonShown(bool shown) override;
    void setRefreshButtonShown(bool shown) override;
    void setRefreshButtonEnabled(bool enabled) override;
    void setOutage(bool outage) override;
    void setAdLinkword(const std::shared_ptr<QVGetRefreshResponseModel> &answer) override;
    void setCharInputBusy(bool busy) override;
    void pictureHasExpired() override;
    [[nodiscard]] bool isSeen() const override;
    [[nodiscard]] QRectF traceFrame() const override;
    [[nodiscard]] QRectF imageFrame() const override;

protected:
    /// The parts become children of \a view.
    explicit QVRenderDrawParts(QWidget *view);

    /// Makes the parts and places them.
    void initRenders(QVVerifyStyle style);
    /// Takes up a changed width of a popup's content.
    void updateContentWidth();
    /// How wide the content of a popup is.
    [[nodiscard]] virtual double contentViewWidth() const = 0;
    /// The advertisement has been shown for the first time.
    virtual void adButtonWasAdded(QVAdButton &button) = 0;

    [[nodiscard]] QVRenderDrawImageView &imageView() const { return *m_imageView; }
    [[nodiscard]] QVCharVerifyInputView &charInputView() const { return *m_charInputView; }
    [[nodiscard]] QVCustomActionButton &helpButton() const { return *m_helpButton; }
    [[nodiscard]] QVCustomActionButton &refreshButton() const { return *m_refreshButton; }
    [[nodiscard]] QVAlternativeButton &alternativeButton() const { return *m_alternativeButton; }
    /// Shows the button for another way, or takes it and its height away.
    void setAlternativeShown(bool shown);
    /// The height that it takes.
    [[nodiscard]] int alternativeHeight() const;
    void spinRefreshButton();

private:
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
    // Has no parent any more once it has been taken out of the picture.
    std::unique_ptr<QVAdButton> m_adButton;
    std::unique_ptr<QVRenderDrawLayout> m_layout;
};
