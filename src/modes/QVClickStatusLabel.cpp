#include "modes/QVClickStatusLabel.h"

#include "views/QVSystemFont.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>

namespace {

constexpr int statusFontSize = 15;

QString oneLine(QString text)
{
    return text.replace(u'\n', u' ');
}

QTextOption wrapping()
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

} // namespace

QVClickStatusLabel::QVClickStatusLabel(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void QVClickStatusLabel::setText(const QString &text)
{
    m_text = text;
    update();
}

bool QVClickStatusLabel::isElided() const
{
    return lines().join(QString()) != oneLine(m_text);
}

void QVClickStatusLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setFont(qv_systemFont(statusFontSize));
    painter.setPen(Qt::white);
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, lines().join(u'\n'));
}

QStringList QVClickStatusLabel::lines() const
{
    const QFontMetrics metrics(qv_systemFont(statusFontSize));
    const QString text = oneLine(m_text);
    QTextLayout layout(text, qv_systemFont(statusFontSize));
    layout.setTextOption(wrapping());
    const bool two = height() >= 2 * metrics.lineSpacing();
    layout.beginLayout();
    QTextLine first = layout.createLine();
    if (!two || !first.isValid())
        return {metrics.elidedText(text, Qt::ElideRight, width())};
    first.setLineWidth(width());
    layout.endLayout();
    const QString rest = text.mid(first.textLength());
    if (rest.isEmpty())
        return {text};
    return {text.left(first.textLength()), metrics.elidedText(rest, Qt::ElideRight, width())};
}
