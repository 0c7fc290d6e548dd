#include "modes/QVSupportLabel.h"

#include "settings/QVLocalization.h"
#include "settings/QVLocalizationKeys.h"
#include "views/QVSystemFont.h"

#include <QFontMetrics>
#include <QPainter>

namespace {

constexpr int supportFontSize = 12;
constexpr QColor textColor(205, 205, 206);

} // namespace

QVSupportLabel::QVSupportLabel(QWidget *parent)
    : QWidget(parent)
    , m_text(qv_localizedStringForKey(QVKey::support))
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
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
    painter.drawText(rect(), Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, m_text);
}
