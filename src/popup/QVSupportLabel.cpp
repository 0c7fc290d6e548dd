#include "popup/QVSupportLabel.h"

#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVAccessibleRole.h"
#include "views/QVReadable.h"
#include "views/QVSystemFont.h"

#include <QFontMetrics>
#include <QPainter>

namespace {

constexpr int supportFontSize = 12;
constexpr QColor textColor(205, 205, 206);
constexpr QColor ground(255, 255, 255, 242);

} // namespace

QVSupportLabel::QVSupportLabel(QWidget *parent)
    : QWidget(parent)
    , m_text(qv_localizedStringForKey(QVKey::support))
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    qv_setAccessibleRole(this, QAccessible::StaticText);
    setAccessibleName(m_text);
}

QSize QVSupportLabel::sizeHint() const
{
    return QFontMetrics(qv_systemFont(supportFontSize)).size(Qt::TextSingleLine, m_text);
}

void QVSupportLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setFont(qv_systemFont(supportFontSize));
    painter.setPen(textColor);
    QVReadable::drawText(painter, rect(), Qt::AlignRight, m_text, ground);
}
