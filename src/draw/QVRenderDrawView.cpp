#include "draw/QVRenderDrawView.h"

#include "draw/QVAdButton.h"
#include "draw/QVAlternativeButton.h"
#include "draw/QVKeyPen.h"
#include "draw/QVPanEventFilter.h"
#include "draw/QVRenderStrokeView.h"
#include "flow/QVRenderDrawFlow.h"
#include "platform/QVMainThread.h"
#include "platform/QVPage.h"
#include "settings/QVBundleImage.h"
#include "views/QVCharVerifyInputView.h"
#include "views/QVCustomActionButton.h"
#include "views/QVRenderDrawImageView.h"
#include "views/QVRenderDrawOverlayView.h"

#include <algorithm>
#include <utility>

namespace {

/// The size hint of an embedded view: room for the picture and the character input.
constexpr QSize embedSize(400, 270);
/// The smallest size in which a curve can be seen and drawn.
constexpr QSize leastEmbedSize(200, 135);

} // namespace

QVRenderDrawView::QVRenderDrawView(QVVerifyStyle style, QWidget *parent)
    : QWidget(parent)
    , QVRenderDrawParts(this)
{
    qv_assertMainThread();
    QVRenderDrawSurface *surface = this;
    m_flow = std::make_shared<QVRenderDrawFlow>(style, surface);
    initRenders(style);
    // A layout does not enlarge it: a curve many times as long cannot be drawn in one go.
    QSizePolicy policy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connectParts();
    initGesture();
    if (parent)
        m_flow->didMoveToSuperview();
}

QVRenderDrawView::~QVRenderDrawView() = default;

void QVRenderDrawView::setDelegate(QVRenderDrawViewDelegate *delegate)
{
    m_flow->setDelegate(delegate);
}

void QVRenderDrawView::setIdentity(const QVIdentity &identity)
{
    m_flow->setIdentity(identity);
}

QVVerifyStyle QVRenderDrawView::verifyStyle() const
{
    return m_flow->verifyStyle();
}

bool QVRenderDrawView::canDirectlyShow() const
{
    return m_flow->canDirectlyShow();
}

bool QVRenderDrawView::canInput()
{
    return hasPicture();
}

void QVRenderDrawView::requestQuarvoConfigAction()
{
    m_flow->requestQuarvoConfigAction();
}

void QVRenderDrawView::reset()
{
    m_flow->reset();
}

void QVRenderDrawView::handleConfigResponseFromQuarvoServer(
    const std::shared_ptr<QVConfigResponseModel> &config,
    const std::shared_ptr<QVGetRefreshResponseModel> &getRefresh)
{
    m_flow->handleConfigResponseFromQuarvoServer(config, getRefresh);
}

QSize QVRenderDrawView::sizeHint() const
{
    return {embedSize.width(), heightForWidth(embedSize.width())};
}

QSize QVRenderDrawView::minimumSizeHint() const
{
    return {leastEmbedSize.width(), leastEmbedSize.height() + alternativeHeight()};
}

int QVRenderDrawView::heightForWidth(int width) const
{
    return width * embedSize.height() / embedSize.width() + alternativeHeight();
}

void QVRenderDrawView::setOffersAlternative(bool offers)
{
    if (alternativeButton().isHidden() != offers)
        return;
    setAlternativeShown(offers);
    updateGeometry();
}

bool QVRenderDrawView::event(QEvent *event)
{
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::ParentChange)
        m_flow->didMoveToSuperview();
    else if (event->type() == QEvent::Show) // Also of a minimised window that is restored.
        m_flow->surfaceHasAppeared();
    // A panel that is a window, or in a graphics scene, has no parent to start in.
    if (event->type() == QEvent::Show && isWindow() && !std::exchange(m_isShownAlone, true))
        m_flow->didMoveToSuperview();
    return handled;
}

void QVRenderDrawView::resizeEvent(QResizeEvent * /*event*/)
{
    // What was drawn would lie elsewhere on the picture.
    m_flow->panGestureRecognizer().cancel();
    layoutSubviews();
    updateContentWidth();
}

void QVRenderDrawView::connectParts()
{
    imageView().setDelegate(m_flow.get());
    charInputView().setDelegate(this);
    connect(&helpButton(), &QAbstractButton::clicked, this, [this] { m_flow->helpButtonDidClickedAction(); });
    connect(&refreshButton(), &QAbstractButton::clicked, this,
            &QVRenderDrawView::refreshButtonDidClickedAction);
    connect(&alternativeButton(), &QAbstractButton::clicked, this, &QVRenderDrawView::alternativeRequested);
}

void QVRenderDrawView::initGesture()
{
    m_renderLayer = new QVRenderStrokeView(this);
    m_events = std::make_unique<QVPanEventFilter>(this, m_flow->panGestureRecognizer());
    m_events->addControl(&helpButton());
    m_events->addControl(&refreshButton());
    m_events->addControl(&alternativeButton());
    layoutSubviews();
    m_keyPen = std::make_unique<QVKeyPen>(this, &imageView(), m_flow->panGestureRecognizer());
}

void QVRenderDrawView::layoutSubviews()
{
    m_renderLayer->setGeometry(rect());
    m_renderLayer->raise();
}

bool QVRenderDrawView::hasSuperview() const
{
    return parentWidget() || m_isShownAlone;
}

void QVRenderDrawView::refreshButtonDidClickedAction()
{
    spinRefreshButton();
    m_flow->refreshButtonDidClickedAction();
}

void QVRenderDrawView::adButtonDidClickedAction(const QVAdButton &button)
{
    qv_openPage(button.link());
}

void QVRenderDrawView::adButtonWasAdded(QVAdButton &button)
{
    connect(&button, &QAbstractButton::clicked, this, [this, &button] { adButtonDidClickedAction(button); });
    m_events->addControl(&button);
}

void QVRenderDrawView::charVerifyInputViewDidClickedDoneButtonWithCharString(QVCharVerifyInputView * /*view*/,
                                                                             const QString &charString)
{
    m_flow->charVerifyInputViewDidClickedDoneButtonWithCharString(charString);
}

void QVRenderDrawView::setDrawingEnabled(bool enabled)
{
    m_keyPen->setReady(enabled);
    if (enabled)
        imageView().setCursor(qv_penCursor());
    else
        imageView().unsetCursor();
}

void QVRenderDrawView::beginStroke(QPointF location)
{
    m_renderLayer->moveTo(location);
}

void QVRenderDrawView::extendStroke(QPointF location)
{
    m_renderLayer->addLineTo(location);
}

void QVRenderDrawView::resetUIs()
{
    m_renderLayer->removeAllPoints();
    m_keyPen->refresh();
}

void QVRenderDrawView::outageHasStarted()
{
    Q_EMIT outageStarted();
}

void QVRenderDrawView::pictureIsReady()
{
    Q_EMIT ready();
}

void QVRenderDrawView::answerWasWrong()
{
    Q_EMIT wrongAnswer();
}

void QVRenderDrawView::attemptHasFailed(const QVError &error)
{
    Q_EMIT failed(error);
}

void QVRenderDrawView::tokenHasExpired()
{
    Q_EMIT expired();
}
