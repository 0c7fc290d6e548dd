#include "quick/QVQuickText.h"

#include "quick/QVQuickLook.h"
#include "settings/QVBundleImage.h"

#include <QQuickWindow>

#include <cmath>
#include <utility>

QVQuickText::QVQuickText(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    connect(this, &QVQuickText::styleChanged, this, &QVQuickText::measure);
    connect(this, &QVQuickText::colorChanged, this, [this] { update(); });
    connect(&QVQuickLookNotice::shared(), &QVQuickLookNotice::changed, this, &QVQuickText::measure);
}

void QVQuickText::componentComplete()
{
    QQuickPaintedItem::componentComplete();
    measure();
}

void QVQuickText::geometryChange(const QRectF &now, const QRectF &before)
{
    QQuickPaintedItem::geometryChange(now, before);
    chooseResolution();
}

void QVQuickText::itemChange(ItemChange change, const ItemChangeData &data)
{
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange)
        chooseResolution();
    QQuickPaintedItem::itemChange(change, data);
}

void QVQuickText::chooseResolution()
{
    // On a screen of fractional ratio items lie between pixels, where a texture of that ratio is blurred.
    constexpr double finer = 2;
    const double ratio = window() ? window()->effectiveDevicePixelRatio() : 1;
    const bool isFractional = ratio != std::floor(ratio);
    setTextureSize(isFractional ? (size() * ratio * finer).toSize() : QSize());
}

void QVQuickText::measure()
{
    if (!isComponentComplete())
        return;
    m_text = QVPaintedText({.pixelSize = m_pixelSize,
                            .mostLines = m_mostLines,
                            .alignment = m_alignment,
                            .hasShadow = m_hasShadow,
                            .isItalic = m_isItalic,
                            .font = m_font});
    m_text.setText(m_words, m_picture.isEmpty() ? QImage() : qv_imageFromBundleWithName(m_picture).toImage());
    const int widest = static_cast<int>(m_widest);
    const QSize size = m_text.sizeFor(widest);
    setImplicitSize(size.width(), size.height());
    if (const int extra = m_text.extraHeightFor(widest); std::exchange(m_extraHeight, extra) != extra)
        Q_EMIT extraHeightChanged();
    update();
}

void QVQuickText::paint(QPainter *painter)
{
    m_text.paint(*painter, boundingRect().toRect(), m_color);
}
