#include "popup/QVCloseButton.h"

#include "settings/QVBundleImage.h"
#include "settings/QVLanguageNotice.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVFocusRing.h"

#include <QPainter>

namespace {

constexpr int pictureInset = 9;
constexpr QColor hoveredColor(60, 60, 68);

} // namespace

QVCloseButton::QVCloseButton(QWidget *parent)
    : QVTouchButton(parent)
    , m_cross(qv_imageFromBundleWithName(QStringLiteral("qv_draw_close")))
{
    setFixedSize(defaultSize());
    setCursor(Qt::PointingHandCursor);
    qv_followLanguage(this, [this] { setAccessibleName(qv_localizedStringForKey(QVKey::accessibleClose)); });
}

void QVCloseButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setOpacity(isDown() ? pressedOpacity : 1.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(isHovered() ? hoveredColor : QColor(Qt::black));
    painter.drawEllipse(rect());
    painter.drawPixmap(rect().marginsRemoved(QMargins() + pictureInset), m_cross);
    if (!qv_showsFocusRing(*this))
        return;
    painter.setPen(QPen(Qt::white, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QRectF(rect()).adjusted(3, 3, -3, -3));
}
