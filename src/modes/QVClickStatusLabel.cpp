#include "modes/QVClickStatusLabel.h"

#include "views/QVAccessibleRole.h"
#include "views/QVReadable.h"
#include "views/QVSystemFont.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>

#include <cmath>

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
    qv_setAccessibleRole(this, QAccessible::NoRole);
}

void QVClickStatusLabel::setText(const QString &text)
{
    m_text = text;
    update();
}

void QVClickStatusLabel::setGround(const QColor &ground)
{
    m_ground = ground;
    update();
}

bool QVClickStatusLabel::isElided() const
{
    return !fits(fittingFont());
}

void QVClickStatusLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setFont(fittingFont());
    painter.setPen(Qt::white);
    const QStringList shown = lines(painter.font());
    const double spacing = painter.fontMetrics().lineSpacing();
    const double top = std::round((height() - spacing * static_cast<double>(shown.size())) / 2);
    for (qsizetype i = 0; i < shown.size(); ++i) {
        const QRectF line(0, top + spacing * static_cast<double>(i), width(), spacing);
        QVReadable::drawText(painter, line, Qt::AlignLeft, shown.at(i), m_ground);
    }
}

QFont QVClickStatusLabel::fittingFont() const
{
    QFont font = qv_systemFont(statusFontSize);
    while (font.pixelSize() > statusFontSize && !fits(font))
        font.setPixelSize(font.pixelSize() - 1);
    return font;
}

bool QVClickStatusLabel::fits(const QFont &font) const
{
    return lines(font).join(QString()) == oneLine(m_text);
}

QStringList QVClickStatusLabel::lines(const QFont &font) const
{
    const QFontMetrics metrics(font);
    const QString text = oneLine(m_text);
    QTextLayout layout(text, font);
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
