#include "draw/QVAlternativeButton.h"

#include "settings/QVColors.h"
#include "settings/QVLanguageNotice.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVAccessibleRole.h"
#include "views/QVFocusRing.h"

#include <QPainter>

QVAlternativeButton::QVAlternativeButton(QWidget *parent)
    : QVTouchButton(parent)
{
    qv_setAccessibleRole(this, QAccessible::Button);
    setCursor(Qt::PointingHandCursor);
    qv_followLanguage(this, [this] {
        m_text.setText(qv_localizedStringForKey(QVKey::alternative));
        setAccessibleName(m_text.text());
        update();
    });
}

void QVAlternativeButton::paintEvent(QPaintEvent * /*event*/)
{
    constexpr qreal disabledOpacity = 0.4;
    constexpr int margin = 10;
    QPainter painter(this);
    painter.fillRect(rect(), QVColors::strip());
    if (isHovered())
        painter.fillRect(rect(), QVColors::stripHover());
    if (!isEnabled())
        painter.setOpacity(disabledOpacity);
    else if (isDown())
        painter.setOpacity(pressedOpacity);
    m_text.paint(painter, rect().adjusted(margin, 0, -margin, 0), QVColors::doneTitle());
    painter.setOpacity(1);
    qv_paintFocusRing(painter, *this);
}
