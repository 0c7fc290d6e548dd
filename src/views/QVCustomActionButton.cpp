#include "views/QVCustomActionButton.h"

#include "settings/QVBundleImage.h"
#include "settings/QVColors.h"
#include "views/QVFocusRing.h"

#include <QPainter>

QVCustomActionButton::QVCustomActionButton(QWidget *parent)
    : QVTouchButton(parent)
    , m_layers(*this)
    , m_layer(std::make_shared<QVLayer>())
    , m_picture(std::make_shared<QVLayer>())
{
    setCursor(Qt::PointingHandCursor);
    m_layer->addSublayer(m_picture);
    m_layers.root().addSublayer(m_layer);
}

void QVCustomActionButton::setImageEdgeInsets(const QMargins &insets)
{
    m_insets = insets;
    placePicture();
}

void QVCustomActionButton::setAlpha(qreal alpha)
{
    m_alpha = alpha;
    m_layer->setOpacity(alpha);
    setVisible(alpha > 0);
}

void QVCustomActionButton::setHighlighted(bool highlighted)
{
    QVTouchButton::setHighlighted(highlighted);
    setAlpha(highlighted ? pressedOpacity : 1);
}

void QVCustomActionButton::placePicture()
{
    m_layer->setFrame(rect());
    m_picture->setFrame(QRectF(rect().marginsRemoved(m_insets)));
}

void QVCustomActionButton::showEvent(QShowEvent *event)
{
    // Reading the first picture of a process makes Qt load all its image plugins.
    m_picture->setContents(qv_imageFromBundleWithName(m_imageName));
    QVTouchButton::showEvent(event);
}

void QVCustomActionButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    m_layers.paint(painter);
    if (isHovered()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QVColors::discHoverTint);
        painter.drawEllipse(rect().marginsRemoved(m_insets));
    }
    qv_paintFocusRing(painter, *this);
}

void QVCustomActionButton::resizeEvent(QResizeEvent *event)
{
    QVTouchButton::resizeEvent(event);
    placePicture();
}
