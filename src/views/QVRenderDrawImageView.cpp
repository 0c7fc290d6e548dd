#include "views/QVRenderDrawImageView.h"

#include "platform/QVError.h"
#include "platform/QVScheduler.h"
#include "settings/QVBundleImage.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVAccessibleRole.h"
#include "views/QVColors.h"
#include "views/QVFocusRing.h"
#include "views/QVPassText.h"
#include "views/QVRenderDrawImageViewLoadingLayer.h"
#include "views/QVRenderDrawOverlayView.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPointer>

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto slideDuration = 200ms;
constexpr auto errorDuration = 800ms;

} // namespace

QVRenderDrawImageView::QVRenderDrawImageView(QWidget *parent)
    : QWidget(parent)
    , m_layers(*this)
    , m_loadingLayer(std::make_shared<QVRenderDrawImageViewLoadingLayer>())
    , m_layout(this)
    , m_promptOverlayView(
          addBar(QStringLiteral("promptOverlayView"), QVColors::promptBar, QVColors::secondaryText))
    , m_errorOverlayView(addBar(QStringLiteral("errorOverlayView"), QVColors::errorBar, Qt::white))
    , m_successOverlayView(addBar(QStringLiteral("successOverlayView"), QVColors::successBar, Qt::white))
{
    setObjectName(QStringLiteral("imageView"));
    qv_setAccessibleRole(this, QAccessible::Graphic);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setIsCharVerify(false);
    m_layers.root().addSublayer(m_loadingLayer);
    connect(m_errorOverlayView, &QAbstractButton::clicked, this,
            &QVRenderDrawImageView::errorOverlayViewDidClickedAction);
    // Places the bars below the edge, so that the first one slides in like any later one.
    m_layout.layoutNow();
}

QVRenderDrawImageView::~QVRenderDrawImageView() = default;

QVRenderDrawOverlayView *QVRenderDrawImageView::addBar(const QString &name, const QColor &background,
                                                       const QColor &text)
{
    auto *bar = new QVRenderDrawOverlayView(background, text, this);
    bar->setObjectName(name);
    m_layout.make(bar, [this](QVConstraintMaker &make) {
        make.left().equalTo(this);
        make.right().equalTo(this);
        make.top().equalTo(this, QVLayoutAttribute::Bottom);
        make.height().equalTo(QVRenderDrawOverlayView::defaultHeight());
    });
    return bar;
}

void QVRenderDrawImageView::setIsCharVerify(bool isCharVerify)
{
    m_isCharVerify = isCharVerify;
    setAccessibleName(
        qv_localizedStringForKey(isCharVerify ? QVKey::accessibleAnswer : QVKey::accessiblePicture));
}

void QVRenderDrawImageView::setImage(const QImage &image)
{
    m_picture.setImage(image);
    update();
}

void QVRenderDrawImageView::showLoadingAnimation()
{
    m_loadingLayer->startLoading();
    setAccessibleDescription(qv_localizedStringForKey(QVKey::accessibleLoading));
    qv_setAccessibleBusy(this, true);
}

void QVRenderDrawImageView::hiddenLoadingAnimation()
{
    m_loadingLayer->stopLoading();
    qv_setAccessibleBusy(this, false);
    setAccessibleDescription(QString());
}

void QVRenderDrawImageView::showPrompt()
{
    if (m_showView && m_showView != m_promptOverlayView)
        return;
    m_promptOverlayView->setOverlayImage(
        qv_imageFromBundleWithName(QStringLiteral("qv_draw_edit")),
        qv_localizedStringForKey(m_isCharVerify ? QVKey::characterCaptcha : QVKey::drawCaptcha));
    slideIn(m_promptOverlayView);
}

void QVRenderDrawImageView::hiddenPrompt()
{
    slideOut(m_promptOverlayView);
}

void QVRenderDrawImageView::showError(const QVError &error, bool canClicked)
{
    hiddenPrompt();
    m_errorOverlayView->setAcceptsTouches(canClicked);
    m_errorOverlayView->setOverlayImage(qv_imageFromBundleWithName(QStringLiteral("qv_draw_error")),
                                        error.domain());
    slideIn(m_errorOverlayView, [this, canClicked] {
        if (!canClicked)
            scheduleHiddenDelayError();
    });
}

void QVRenderDrawImageView::hiddenError()
{
    slideOut(m_errorOverlayView);
}

void QVRenderDrawImageView::scheduleHiddenDelayError()
{
    // Never taken back: what is shown when it comes decides what it does.
    QVScheduler::shared().schedule(errorDuration, [self = QPointer(this)] {
        if (self)
            self->hiddenDelayError();
    });
}

void QVRenderDrawImageView::hiddenDelayError()
{
    if (m_errorOverlayView->acceptsTouches())
        return;
    hiddenError();
    if (m_delegate)
        m_delegate.get()->renderDrawImageViewHiddenDelayErrorCompleted();
}

void QVRenderDrawImageView::showSuccess(const QVVerifyResponseModel &answer)
{
    hiddenPrompt();
    hiddenError();
    m_successOverlayView->setOverlayImage(qv_imageFromBundleWithName(QStringLiteral("qv_draw_success")),
                                          qv_passText(answer));
    slideIn(m_successOverlayView);
}

void QVRenderDrawImageView::hiddenSuccess()
{
    slideOut(m_successOverlayView);
}

void QVRenderDrawImageView::hiddernAll()
{
    hiddenSuccess();
    hiddenPrompt();
    hiddenError();
}

void QVRenderDrawImageView::slideIn(QVRenderDrawOverlayView *bar, QVLayout::Completion completion)
{
    m_showView = bar;
    keepClearOfStrip();
    bar->setOnScreen(true);
    moveBar(bar, -QVRenderDrawOverlayView::defaultHeight(), std::move(completion));
}

void QVRenderDrawImageView::slideOut(QVRenderDrawOverlayView *bar)
{
    m_showView = nullptr;
    bar->setOnScreen(false);
    moveBar(bar, 0, [bar] {
        // Out of sight, but a screen reader would still find it.
        if (!bar->isOnScreen())
            bar->hide();
    });
}

void QVRenderDrawImageView::moveBar(QVRenderDrawOverlayView *bar, int offset, QVLayout::Completion completion)
{
    m_layout.update(bar, [this, offset](QVConstraintMaker &make) {
        make.top().equalTo(this, QVLayoutAttribute::Bottom).offset(offset);
        // The platform's text may have become larger.
        make.height().equalTo(QVRenderDrawOverlayView::defaultHeight());
    });
    m_layout.animateLayout(slideDuration, std::move(completion));
}

void QVRenderDrawImageView::setStrip(QWidget *strip)
{
    m_strip = strip;
    strip->installEventFilter(this);
}

bool QVRenderDrawImageView::eventFilter(QObject * /*watched*/, QEvent *event)
{
    const QEvent::Type type = event->type();
    // The strip finds its place while a bar may be on screen already.
    if (type == QEvent::Move || type == QEvent::Show || type == QEvent::Hide)
        keepClearOfStrip();
    return false;
}

void QVRenderDrawImageView::keepClearOfStrip()
{
    if (!m_strip)
        return;
    const int covered = m_strip->isHidden() ? 0 : std::max(0, geometry().bottom() + 1 - m_strip->y());
    if (std::exchange(m_coveredHeight, covered) == covered)
        return;
    for (auto *bar : {m_promptOverlayView, m_errorOverlayView, m_successOverlayView})
        bar->setCoveredHeight(covered);
}

void QVRenderDrawImageView::errorOverlayViewDidClickedAction()
{
    if (m_delegate)
        m_delegate.get()->renderDrawImageViewErrorDidClickedAction();
}

void QVRenderDrawImageView::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    if (!m_picture.isOpaque())
        painter.fillRect(event->rect(), QVColors::picture);
    m_picture.paint(painter, size());
    m_layers.paint(painter);
    qv_paintFocusRing(painter, *this, QVColors::accent);
}

void QVRenderDrawImageView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_loadingLayer->setFrame(rect());
    m_loadingLayer->centerDots();
    keepClearOfStrip();
}
