#include "views/QVRenderDrawOverlayView.h"

#include "flow/QVOverlaySurface.h"
#include "settings/QVBundleImage.h"
#include "settings/QVSystemFont.h"
#include "views/QVAccessibleRole.h"
#include "views/QVFocusRing.h"
#include "views/QVLabel.h"

#include <QPaintEvent>
#include <QPainter>

#include <cmath>

namespace {

constexpr int labelInset = QVOverlaySurface::barInset;
constexpr int retrySide = QVOverlaySurface::retrySide;

/// White text is used on coloured bars, and needs a shadow.
QVTextStyle styleFor(QVColors::Source text)
{
    return {.pixelSize = 14, .mostLines = 2, .hasShadow = text == QVColors::white};
}

} // namespace

QVRenderDrawOverlayView::QVRenderDrawOverlayView(const QColor &background, QVColors::Source source,
                                                 QWidget *parent)
    : QVTouchButton(parent)
    , m_overlayLabel(new QVLabel(styleFor(source), source, QAccessible::Notification, this))
    , m_layout(this)
    , m_background(background)
{
    updateInput();
    m_layout.make(m_overlayLabel, [this](QVConstraintMaker &make) {
        make.left().equalTo(this).offset(labelInset);
        make.top().equalTo(this);
        make.bottom().equalTo(this);
    });
    hide();
}

int QVRenderDrawOverlayView::defaultHeight()
{
    return static_cast<int>(std::lround(QVOverlaySurface::barHeight * qv_textScale()));
}

void QVRenderDrawOverlayView::setOverlayImage(const QPixmap &image, const QVText &text)
{
    m_image = image;
    m_text = text;
    translate();
}

void QVRenderDrawOverlayView::translate()
{
    m_overlayLabel->setText(m_text.text(), m_image);
    updateInput();
}

int QVRenderDrawOverlayView::heightFor(int width) const
{
    return defaultHeight() + m_overlayLabel->extraHeightFor(width - labelInset - rightInset());
}

int QVRenderDrawOverlayView::rightInset() const
{
    return m_acceptsTouches ? 2 * labelInset + retrySide : labelInset;
}

QRect QVRenderDrawOverlayView::retryFrame() const
{
    const QRect label = m_overlayLabel->geometry();
    return {width() - labelInset - retrySide, label.top() + (label.height() - retrySide) / 2, retrySide,
            retrySide};
}

void QVRenderDrawOverlayView::setCoveredHeight(int height)
{
    m_layout.make(m_overlayLabel,
                  [this, height](QVConstraintMaker &make) { make.bottom().equalTo(this).offset(-height); });
}

void QVRenderDrawOverlayView::setAcceptsTouches(bool accepts)
{
    m_acceptsTouches = accepts;
    m_layout.make(m_overlayLabel,
                  [this](QVConstraintMaker &make) { make.right().equalTo(this).offset(-rightInset()); });
    updateInput();
}

void QVRenderDrawOverlayView::setOnScreen(bool onScreen)
{
    m_isOnScreen = onScreen;
    updateInput();
    if (!onScreen)
        return;
    // A bar that is still sliding out is visible, so showing it again would not make it read out.
    qv_readOut(m_overlayLabel);
    show();
    raise();
}

void QVRenderDrawOverlayView::updateInput()
{
    const bool takesInput = m_acceptsTouches && m_isOnScreen;
    setAttribute(Qt::WA_TransparentForMouseEvents, !takesInput);
    setFocusPolicy(takesInput ? Qt::TabFocus : Qt::NoFocus);
    // The label is read out, not the bar.
    qv_setAccessibleRole(this, takesInput ? QAccessible::Button : QAccessible::Grouping);
    setAccessibleName(m_overlayLabel->accessibleName());
    setCursor(takesInput ? Qt::PointingHandCursor : Qt::ArrowCursor);
    if (!takesInput)
        clearFocus();
}

void QVRenderDrawOverlayView::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.setOpacity(isDown() ? pressedOpacity : 1);
    painter.fillRect(event->rect(), m_background);
    if (isHovered() && m_acceptsTouches)
        painter.fillRect(event->rect(), QVColors::hoverTint);
    if (m_acceptsTouches)
        painter.drawPixmap(retryFrame(), qv_imageFromBundleWithName(QStringLiteral("qv_draw_retry")));
    qv_paintFocusRing(painter, *this);
}
