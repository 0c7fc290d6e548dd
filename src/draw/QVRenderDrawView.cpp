#include "draw/QVRenderDrawView.h"

#include "draw/QVAlternativeButton.h"
#include "flow/QVRenderDrawFlow.h"
#include "platform/QVMainThread.h"
#include "views/QVCharVerifyInputView.h"
#include "views/QVCustomActionButton.h"
#include "views/QVRenderDrawImageView.h"

namespace {

/// The size hint of an embedded view: room for the picture and the character input.
constexpr QSize embedSize(400, 270);
/// The smallest size in which a curve can be seen and drawn.
constexpr QSize leastEmbedSize(200, 135);

} // namespace

QVRenderDrawView::QVRenderDrawView(QVVerifyStyle style, QWidget *parent)
    : QWidget(parent)
{
    qv_assertMainThread();
    QVRenderDrawObserver *observer = this;
    m_flow = std::make_shared<QVRenderDrawFlow>(style, &m_parts, observer);
    m_parts.initRenders(style);
    // A layout does not enlarge it: a curve many times as long cannot be drawn in one go.
    QSizePolicy policy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connectParts();
    m_parts.initGesture(m_flow->panGestureRecognizer());
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
    return m_parts.hasPicture();
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
    return {leastEmbedSize.width(), leastEmbedSize.height() + m_parts.alternativeHeight()};
}

int QVRenderDrawView::heightForWidth(int width) const
{
    return width * embedSize.height() / embedSize.width() + m_parts.alternativeHeight();
}

void QVRenderDrawView::setOffersAlternative(bool offers)
{
    if (m_parts.alternativeButton().isHidden() != offers)
        return;
    m_parts.setAlternativeShown(offers);
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
    if (event->type() == QEvent::Show && isWindow() && m_parts.noteShownAlone())
        m_flow->didMoveToSuperview();
    return handled;
}

void QVRenderDrawView::resizeEvent(QResizeEvent * /*event*/)
{
    // What was drawn would lie elsewhere on the picture.
    m_flow->panGestureRecognizer().cancel();
    m_parts.layoutSubviews();
}

void QVRenderDrawView::connectParts()
{
    m_parts.imageView().setDelegate(m_flow.get());
    m_parts.charInputView().setDelegate(this);
    connect(&m_parts.helpButton(), &QAbstractButton::clicked, this,
            [this] { m_flow->helpButtonDidClickedAction(); });
    connect(&m_parts.refreshButton(), &QAbstractButton::clicked, this,
            &QVRenderDrawView::refreshButtonDidClickedAction);
    connect(&m_parts.alternativeButton(), &QAbstractButton::clicked, this,
            &QVRenderDrawView::alternativeRequested);
}

void QVRenderDrawView::refreshButtonDidClickedAction()
{
    m_parts.spinRefreshButton();
    m_flow->refreshButtonDidClickedAction();
}

void QVRenderDrawView::charVerifyInputViewDidClickedDoneButtonWithCharString(QVCharVerifyInputView * /*view*/,
                                                                             const QString &charString)
{
    m_flow->charVerifyInputViewDidClickedDoneButtonWithCharString(charString);
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
