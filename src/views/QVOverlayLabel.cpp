#include "views/QVOverlayLabel.h"

#include "views/QVAccessibleRole.h"
#include "views/QVOneLine.h"
#include "views/QVReadable.h"
#include "views/QVSystemFont.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int overlayFontSize = 14;
constexpr int smallestFontSize = 11;
constexpr qreal iconSide = 20;
constexpr qreal iconBelowBaseline = 4;

} // namespace

QVOverlayLabel::QVOverlayLabel(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    qv_setAccessibleRole(this, QAccessible::Notification);
}

void QVOverlayLabel::setContent(const QPixmap &image, const QString &text)
{
    m_image = image;
    m_text = text;
    m_line = qv_oneLine(text);
    setAccessibleName(m_line.trimmed());
    update();
}

void QVOverlayLabel::setTextColor(const QColor &color)
{
    m_textColor = color;
    update();
}

void QVOverlayLabel::setGround(const QColor &ground)
{
    m_ground = ground;
    update();
}

void QVOverlayLabel::paintEvent(QPaintEvent *)
{
    const qreal iconWidth = m_image.isNull() ? 0 : iconSide;
    const QFont font = qv_fittingFont(qv_systemFont(overlayFontSize), m_line,
                                      QSizeF(width() - iconWidth, height()), smallestFontSize);
    const QFontMetricsF metrics(font);
    const QString line = metrics.elidedText(m_line, Qt::ElideRight, width() - iconWidth);
    const qreal contentWidth = iconWidth + metrics.horizontalAdvance(line);
    // The icon takes part in the height of the line, as a letter of its own size would.
    const qreal ascent = std::max(metrics.ascent(), iconWidth - iconBelowBaseline);
    const qreal descent = std::max(metrics.descent(), m_image.isNull() ? 0 : iconBelowBaseline);
    const qreal left = std::max(0.0, std::floor((width() - contentWidth) / 2));
    const qreal baseline = std::round((height() - ascent - descent) / 2 + ascent);

    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (!m_image.isNull()) {
        const QRectF icon(left, baseline + iconBelowBaseline - iconSide, iconSide, iconSide);
        QVReadable::drawIcon(painter, icon, m_image, m_textColor, m_ground);
    }
    painter.setFont(font);
    painter.setPen(m_textColor);
    QVReadable::drawText(painter, QPointF(left + iconWidth, baseline), line, m_ground);
}
