#include "draw/QVRenderDrawParts.h"

#include "draw/QVAdButton.h"
#include "draw/QVAlternativeButton.h"
#include "draw/QVContentView.h"
#include "draw/QVKeyPen.h"
#include "draw/QVPanEventFilter.h"
#include "draw/QVRenderDrawLayout.h"
#include "draw/QVRenderStrokeView.h"
#include "flow/QVDrawGeometry.h"
#include "image/QVPicture.h"
#include "platform/QVPage.h"
#include "service/QVGetRefreshResponseModel.h"
#include "settings/QVBundleImage.h"
#include "settings/QVColors.h"
#include "settings/QVLanguageNotice.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVCharVerifyInputView.h"
#include "views/QVCharVerifyInputViewDoneButton.h"
#include "views/QVCustomActionButton.h"
#include "views/QVLabel.h"
#include "views/QVRenderDrawImageView.h"
#include "views/QVRenderDrawOverlayView.h"
#include "views/QVSpokenMessage.h"

#include <algorithm>
#include <numbers>
#include <utility>

namespace {

constexpr int captionFontSize = 17;
constexpr int badgeFontSize = 12;
constexpr QSize badgePadding(10, 5);
constexpr int buttonInset = 5;

QVCustomActionButton *makeButton(QWidget *parent, const char *name, const char *picture,
                                 QLatin1String accessibleKey)
{
    auto *button = new QVCustomActionButton(parent);
    button->setObjectName(QLatin1String(name));
    button->setImage(QLatin1String(picture));
    button->setImageEdgeInsets(QMargins(buttonInset, buttonInset, buttonInset, buttonInset));
    qv_followLanguage(button, [button, accessibleKey] {
        button->setAccessibleName(qv_localizedStringForKey(accessibleKey));
    });
    button->setAlpha(0);
    return button;
}

} // namespace

QVRenderDrawParts::QVRenderDrawParts(QWidget *view)
    : m_view(view)
{
}

QVRenderDrawParts::~QVRenderDrawParts()
{
    // The focus may leave it, and a host then may lay out the view anew, which needs all parts.
    m_adButton.reset();
}

void QVRenderDrawParts::initRenders(QVVerifyStyle style)
{
    initContent();
    initControls();
    // So that moves without a button reach the filter that follows the pointer.
    m_contentView->setMouseTracking(true);
    m_imageView->setMouseTracking(true);
    m_layout = std::make_unique<QVRenderDrawLayout>(
        style, QVRenderDrawLayout::Parts{m_view, m_contentView, m_imageView, m_charInputView, m_captchaLabel,
                                         m_helpButton, m_refreshButton, m_alternativeButton});
    m_layout->initRenders(contentViewWidth());
}

void QVRenderDrawParts::initGesture(QVPanGestureRecognizer &recognizer)
{
    m_renderLayer = new QVRenderStrokeView(m_view);
    m_events = std::make_unique<QVPanEventFilter>(m_view, recognizer);
    m_events->addControl(m_helpButton);
    m_events->addControl(m_refreshButton);
    m_events->addControl(m_alternativeButton);
    placeStroke();
    m_keyPen = std::make_unique<QVKeyPen>(m_view, m_imageView, recognizer);
}

double QVRenderDrawParts::contentViewWidth() const
{
    return std::min<double>(m_view->width(), QVDrawGeometry::widestContent);
}

void QVRenderDrawParts::layoutSubviews()
{
    placeStroke();
    m_captchaLabel->setMaximumWidth(
        std::max(0, int(contentViewWidth()) - 2 * QVDrawGeometry::closeButtonRoom));
    m_layout->setContentWidth(contentViewWidth());
}

void QVRenderDrawParts::placeStroke()
{
    m_renderLayer->setGeometry(m_view->rect());
    m_renderLayer->raise();
}

bool QVRenderDrawParts::noteShownAlone()
{
    return !std::exchange(m_isShownAlone, true);
}

bool QVRenderDrawParts::hasSuperview() const
{
    return m_view->parentWidget() || m_isShownAlone;
}

void QVRenderDrawParts::initContent()
{
    auto *const contentView = new QVContentView(m_view);
    contentView->setObjectName(QStringLiteral("contentView"));
    m_contentView = contentView;
    m_imageView = new QVRenderDrawImageView(m_contentView);
    m_imageView->setObjectName(QStringLiteral("imageView"));
    m_charInputView = new QVCharVerifyInputView(m_contentView);
    m_charInputView->setObjectName(QStringLiteral("charInputView"));
    m_charInputView->hide();
    m_imageView->setStrip(m_charInputView);
    contentView->setGap(m_imageView, m_charInputView);
}

void QVRenderDrawParts::initControls()
{
    m_captchaLabel =
        new QVLabel({.pixelSize = captionFontSize}, QVColors::caption, QAccessible::StaticText, m_view);
    m_captchaLabel->setObjectName(QStringLiteral("captchaLabel"));
    m_captchaLabel->hide();
    qv_followLanguage(m_view, [this] { m_captchaLabel->setText(m_caption.text()); });

    m_helpButton = makeButton(m_view, "helpButton", "qv_draw_help", QVKey::accessibleHelp);
    m_refreshButton = makeButton(m_view, "refreshButton", "qv_draw_refresh", QVKey::accessibleRefresh);
    QWidget::setTabOrder(m_refreshButton, m_helpButton);
    m_spokenMessage = new QVSpokenMessage(m_view);
    m_alternativeButton = new QVAlternativeButton(m_view);
    m_alternativeButton->setObjectName(QStringLiteral("alternativeButton"));
    m_alternativeButton->hide();
    QWidget::setTabOrder(m_helpButton, m_alternativeButton);
}

bool QVRenderDrawParts::isSeen() const
{
    return m_view->isVisible() && !m_view->window()->isMinimized();
}

QRectF QVRenderDrawParts::traceFrame() const
{
    // In a view that is flatter than its content, a trace relative to the whole width would be too small.
    return m_layout->excessWidth() > 0 ? m_contentView->geometry() : m_view->rect();
}

QRectF QVRenderDrawParts::imageFrame() const
{
    return QRectF(m_imageView->mapTo(m_view, QPoint(0, 0)), m_imageView->size());
}

QVLabel &QVRenderDrawParts::outageLabel()
{
    if (!m_outageLabel) {
        m_outageLabel = new QVLabel({.pixelSize = badgeFontSize, .isItalic = true}, QVColors::white,
                                    QAccessible::StaticText, m_imageView);
        m_outageLabel->setGround(QVColors::badge, badgePadding);
        m_outageLabel->setObjectName(QStringLiteral("outageLabel"));
        qv_followLanguage(m_outageLabel, [label = m_outageLabel] {
            label->setText(qv_localizedStringForKey(QVKey::outage));
            // Independent of the picture's size, which may not be final yet.
            label->resize(label->sizeFor(QVDrawGeometry::widestBadge));
        });
    }
    return *m_outageLabel;
}

QVAdButton &QVRenderDrawParts::adButton()
{
    if (!m_adButton) {
        m_adButton = std::make_unique<QVAdButton>(m_imageView);
        m_adButton->setObjectName(QStringLiteral("adButton"));
        m_adButton->show();
        QWidget::setTabOrder(m_helpButton, m_adButton.get());
        QObject::connect(m_adButton.get(), &QAbstractButton::clicked, m_view,
                         [this] { qv_openPage(m_adButton->link()); });
        m_events->addControl(m_adButton.get());
    }
    return *m_adButton;
}

void QVRenderDrawParts::showLoadingAnimation()
{
    m_imageView->showLoadingAnimation();
}

void QVRenderDrawParts::hiddenLoadingAnimation()
{
    m_imageView->hiddenLoadingAnimation();
}

void QVRenderDrawParts::setPicture(const QVPicture &picture)
{
    m_imageView->setImage(picture.image, picture.scaled);
}

QSize QVRenderDrawParts::pictureSize() const
{
    return QVScaledPicture::pixelsOf(m_imageView->size(), m_imageView->devicePixelRatioF());
}

void QVRenderDrawParts::clearPicture()
{
    m_imageView->setImage({});
}

void QVRenderDrawParts::showFailedPicture()
{
    m_imageView->setImage(qv_imageFromBundleWithName(QStringLiteral("qv_request_faild.jpg")).toImage());
}

bool QVRenderDrawParts::hasPicture() const
{
    return m_imageView->hasImage();
}

void QVRenderDrawParts::slideIn(Bar bar, const QVText &text, bool acceptsTouches)
{
    m_alternativeButton->setEnabled(bar != Bar::Success);
    m_imageView->slideIn(bar, text, acceptsTouches);
}

void QVRenderDrawParts::slideOut(Bar bar)
{
    m_alternativeButton->setEnabled(true);
    m_imageView->slideOut(bar);
}

void QVRenderDrawParts::updateContentWidthHeightQVVerifyPercentage(bool isCharVerify)
{
    m_imageView->setIsCharVerify(isCharVerify);
    m_charInputView->setVisible(isCharVerify);
    m_layout->setIsCharVerify(isCharVerify, contentViewWidth());
}

void QVRenderDrawParts::setCaption(const QVText &caption)
{
    m_caption = caption;
    if (!caption.isNull())
        m_captchaLabel->setText(caption.text());
    m_captchaLabel->setVisible(!caption.isNull());
}

void QVRenderDrawParts::setHelpButtonShown(bool shown)
{
    m_helpButton->setAlpha(shown ? 1 : 0);
    m_layout->setHelpShown(shown);
}

void QVRenderDrawParts::setAlternativeShown(bool shown)
{
    m_alternativeButton->setVisible(shown);
    m_layout->setAlternativeHeight(shown ? QVDrawGeometry::alternativeHeight : 0, contentViewWidth());
}

int QVRenderDrawParts::alternativeHeight() const
{
    return m_layout->alternativeHeight();
}

void QVRenderDrawParts::setRefreshButtonShown(bool shown)
{
    m_refreshButton->setAlpha(shown ? 1 : 0);
}

void QVRenderDrawParts::setRefreshButtonEnabled(bool enabled)
{
    m_refreshButton->setEnabled(enabled);
}

void QVRenderDrawParts::setAdLinkword(const std::shared_ptr<QVGetRefreshResponseModel> &answer)
{
    if (answer)
        adButton().setWord(answer->adlinkword(), answer->adlink());
    else if (m_adButton)
        m_adButton->setParent(nullptr);
}

void QVRenderDrawParts::setCharInputBusy(bool busy)
{
    if (busy || !m_charInputView->isHidden())
        m_charInputView->doneButton()->setButtonStauts(busy ? 1 : 0);
}

void QVRenderDrawParts::pictureHasExpired()
{
    m_spokenMessage->tell(QVKey::accessibleExpired);
}

void QVRenderDrawParts::setOutage(bool outage)
{
    // Measuring its text loads a font.
    if (outage || m_outageLabel)
        outageLabel().setVisible(outage);
}

void QVRenderDrawParts::spinRefreshButton()
{
    QVAnimation spin = QVAnimation::basic(QVLayerProperty::Rotation, 0.0, std::numbers::pi);
    spin.setDuration(std::chrono::duration<double>(QVDrawGeometry::spinDuration).count());
    m_refreshButton->layer().addAnimation(spin);
}

void QVRenderDrawParts::setDrawingEnabled(bool enabled)
{
    m_keyPen->setReady(enabled);
    if (enabled)
        m_imageView->setCursor(qv_penCursor());
    else
        m_imageView->unsetCursor();
}

void QVRenderDrawParts::beginStroke(QPointF location)
{
    m_renderLayer->moveTo(location);
}

void QVRenderDrawParts::extendStroke(QPointF location)
{
    m_renderLayer->addLineTo(location);
}

void QVRenderDrawParts::resetUIs()
{
    m_renderLayer->removeAllPoints();
    m_keyPen->refresh();
}
