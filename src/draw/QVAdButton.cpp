#include "draw/QVAdButton.h"

#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVColors.h"
#include "views/QVFocusRing.h"
#include "views/QVOneLine.h"
#include "views/QVSystemFont.h"

#include <QPainter>
#include <QtMath>

#include <algorithm>

namespace {

constexpr int inset = 5;
constexpr int heightBeyondText = 5;
constexpr int widest = 125;
constexpr int fontSize = 12;
// Larger text must not cover the picture.
constexpr QSizeF room(widest - 2 * inset, 30);

} // namespace

QVAdButton::QVAdButton(QWidget *parent)
    : QVTouchButton(parent)
{
    setCursor(Qt::PointingHandCursor);
}

void QVAdButton::setWord(const QString &word, const QString &link)
{
    m_word = qv_oneLine(word);
    m_link = link;
    setAccessibleName(qv_localizedStringForKey(QVKey::accessibleAdvertisement) + u' ' + m_word);
    const QFontMetricsF metrics(qv_systemFont(fontSize, m_word, room));
    const int width = std::min(qCeil(metrics.horizontalAdvance(m_word)) + 2 * inset, widest);
    setGeometry(0, 0, width, qCeil(metrics.height()) + heightBeyondText);
    update();
}

void QVAdButton::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), QVColors::badge);
    const QRect title = rect().adjusted(inset, 0, -inset, 0);
    painter.setFont(qv_systemFont(fontSize, m_word, room));
    painter.setPen(Qt::white);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    painter.drawText(title, Qt::AlignCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(m_word, Qt::ElideRight, title.width()));
    qv_paintFocusRing(painter, *this, Qt::white);
}
