#include "views/QVRenderDrawImageView.h"

#include "flow/QVRenderDrawSurface.h"
#include "settings/QVBundleImage.h"
#include "settings/QVColors.h"
#include "settings/QVLanguageNotice.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVAccessibleRole.h"
#include "views/QVFocusRing.h"
#include "views/QVRenderDrawImageViewLoadingLayer.h"
#include "views/QVRenderDrawOverlayView.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace {

QString pictureOf(QVOverlaySurface::Bar bar)
{
    switch (bar) {
    case QVOverlaySurface::Bar::Prompt:
        return QStringLiteral("qv_draw_edit");
    case QVOverlaySurface::Bar::Error:
        return QStringLiteral("qv_draw_error");
    case QVOverlaySurface::Bar::Success:
        break;
    }
    return QStringLiteral("qv_draw_success");
}

} // namespace

QVRenderDrawImageView::QVRenderDrawImageView(QWidget *parent)
    : QWidget(parent)
    , m_layers(*this)
    , m_loadingLayer(std::make_shared<QVRenderDrawImageViewLoadingLayer>())
    , m_layout(this)
    , m_promptOverlayView(
          addBar(QStringLiteral("promptOverlayView"), QVColors::promptBar, QVColors::promptText))
    , m_errorOverlayView(addBar(QStringLiteral("errorOverlayView"), QVColors::errorBar, QVColors::white))
    , m_successOverlayView(
          addBar(QStringLiteral("successOverlayView"), QVColors::successBar, QVColors::white))
{
    setObjectName(QStringLiteral("imageView"));
    qv_setAccessibleRole(this, QAccessible::Graphic);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_layers.root().addSublayer(m_loadingLayer);
    m_focusRing = new QVFocusRing(this);
    connect(m_errorOverlayView, &QAbstractButton::clicked, this,
            &QVRenderDrawImageView::errorOverlayViewDidClickedAction);
    // The first call also places the bars below the edge, so that the first one slides in from there.
    qv_followLanguage(this, [this] { translate(); });
}

QVRenderDrawImageView::~QVRenderDrawImageView() = default;

QVRenderDrawOverlayView *QVRenderDrawImageView::addBar(const QString &name, const QColor &background,
                                                       QVColors::Source text)
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

void QVRenderDrawImageView::translate()
{
    setIsCharVerify(m_isCharVerify);
    if (m_isLoading)
        setAccessibleDescription(qv_localizedStringForKey(QVKey::accessibleLoading));
    for (auto *bar : {m_promptOverlayView, m_errorOverlayView, m_successOverlayView}) {
        bar->translate();
        placeBar(bar);
    }
    m_layout.layoutNow();
}

void QVRenderDrawImageView::setImage(const QImage &image, const QImage &scaled)
{
    m_image = image;
    if (image.isNull() && isVisible() && !m_picture.image().isNull()) {
        m_clearing.start(QVRenderDrawSurface::clearDelay, [this] { showNow({}, {}); });
        return;
    }
    m_clearing.stop();
    showNow(image, scaled);
}

void QVRenderDrawImageView::showNow(const QImage &image, const QImage &scaled)
{
    m_picture.setImage(image, scaled);
    update();
}

void QVRenderDrawImageView::showLoadingAnimation()
{
    if (!std::exchange(m_isLoading, true))
        m_loadingLayer->startLoading();
    setAccessibleDescription(qv_localizedStringForKey(QVKey::accessibleLoading));
    qv_setAccessibleBusy(this, true);
}

void QVRenderDrawImageView::hiddenLoadingAnimation()
{
    m_loadingLayer->stopLoading();
    m_isLoading = false;
    qv_setAccessibleBusy(this, false);
    setAccessibleDescription(QString());
}

QVRenderDrawOverlayView *QVRenderDrawImageView::view(Bar bar) const
{
    switch (bar) {
    case Bar::Prompt:
        return m_promptOverlayView;
    case Bar::Error:
        return m_errorOverlayView;
    case Bar::Success:
        break;
    }
    return m_successOverlayView;
}

void QVRenderDrawImageView::slideIn(Bar bar, const QVText &text, bool acceptsTouches)
{
    auto *const view = this->view(bar);
    view->setAcceptsTouches(acceptsTouches);
    view->setOverlayImage(qv_imageFromBundleWithName(pictureOf(bar)), text);
    keepClearOfStrip();
    view->setOnScreen(true);
    m_focusRing->raise();
    placeBar(view);
    m_layout.animateLayout(QVOverlaySurface::slideDuration);
}

void QVRenderDrawImageView::slideOut(Bar bar)
{
    auto *const view = this->view(bar);
    view->setOnScreen(false);
    placeBar(view);
    m_layout.animateLayout(QVOverlaySurface::slideDuration, [view] {
        // Hidden, since a screen reader would find the bar even outside the picture.
        if (!view->isOnScreen())
            view->hide();
    });
}

void QVRenderDrawImageView::placeBar(QVRenderDrawOverlayView *bar)
{
    // One line of text must be visible above the strip.
    const int leastSeen = QVRenderDrawOverlayView::defaultHeight() * 2 / 3;
    const int height = std::max(bar->heightFor(width()), m_coveredHeight + leastSeen);
    m_layout.make(bar, [this, bar, height](QVConstraintMaker &make) {
        make.top().equalTo(this, QVLayoutAttribute::Bottom).offset(bar->isOnScreen() ? -height : 0);
        make.height().equalTo(height);
    });
}

void QVRenderDrawImageView::setStrip(QWidget *strip)
{
    m_strip = strip;
    strip->installEventFilter(this);
}

bool QVRenderDrawImageView::eventFilter(QObject * /*watched*/, QEvent * /*event*/)
{
    // The strip may have been placed or shown while a bar is on screen.
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
    for (auto *bar : {m_promptOverlayView, m_errorOverlayView, m_successOverlayView}) {
        bar->setCoveredHeight(covered);
        placeBar(bar);
    }
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
    // The loading dots are shown only after the former picture has been cleared.
    if (!m_clearing.isActive())
        m_layers.paint(painter);
}

void QVRenderDrawImageView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_focusRing->fit();
    m_loadingLayer->setFrame(rect());
    m_loadingLayer->centerDots();
    keepClearOfStrip();
    for (auto *bar : {m_promptOverlayView, m_errorOverlayView, m_successOverlayView})
        placeBar(bar);
}

void QVRenderDrawImageView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        translate();
}
