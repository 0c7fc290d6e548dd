#include "draw/QVAdButton.h"

#include "settings/QVColors.h"
#include "settings/QVLanguageNotice.h"
#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "settings/QVOneLine.h"
#include "settings/QVSystemFont.h"
#include "views/QVFocusRing.h"

#include <QEvent>
#include <QPainter>
#include <QtMath>

#include <algorithm>

namespace {

constexpr int inset = 5;
constexpr int heightBeyondText = 5;
constexpr int widest = 125;

} // namespace

QVAdButton::QVAdButton(QWidget *parent)
    : QVTouchButton(parent)
{
    setCursor(Qt::PointingHandCursor);
    qv_followLanguage(this, [this] { nameWord(); });
}

void QVAdButton::setWord(const QString &word, const QString &link)
{
    m_word.setText(word);
    m_link = link;
    nameWord();
    fitWord();
}

void QVAdButton::fitWord()
{
    const QSize size = m_word.sizeFor(widest - 2 * inset);
    setGeometry(0, 0, size.width() + 2 * inset, size.height() + heightBeyondText);
    update();
}

void QVAdButton::nameWord()
{
    setAccessibleName(qv_localizedStringForKey(QVKey::accessibleAdvertisement) + u' ' +
                      qv_oneLine(m_word.text()));
}

void QVAdButton::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        fitWord();
    QVTouchButton::changeEvent(event);
}

void QVAdButton::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), QVColors::badge);
    if (isHovered())
        painter.fillRect(rect(), QVColors::hoverTint);
    m_word.paint(painter, rect().adjusted(inset, 0, -inset, 0), Qt::white);
    qv_paintFocusRing(painter, *this);
}
