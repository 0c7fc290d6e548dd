#include "paint/QVPaintedText.h"

#include "image/QVSmoothScaling.h"
#include "paint/QVScaledPicture.h"
#include "settings/QVOneLine.h"
#include "settings/QVSystemFont.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QRegularExpression>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace {

constexpr int smallestPixelSize = 12;
constexpr int anyHeight = 1 << 24;
constexpr qreal iconSide = 20;
constexpr qreal iconBelowBaseline = 4;

double widest(const QStringList &lines, const QFontMetricsF &metrics)
{
    double width = 0;
    for (const QString &line : lines)
        width = std::max(width, metrics.horizontalAdvance(line));
    return width;
}

/// The text in two, after the first full stop or Chinese comma.
QStringList sentencesOf(const QString &line)
{
    static const QRegularExpression end(QStringLiteral("\\. |[，。]"));
    const qsizetype at = line.indexOf(end);
    return at < 0 ? QStringList(line) : QStringList{line.left(at + 1), line.mid(at + 1).trimmed()};
}

/// The height of the lines below the first one.
double extraHeight(const QStringList &lines, const QFontMetricsF &metrics)
{
    return metrics.lineSpacing() * double(std::max<qsizetype>(lines.size(), 1) - 1);
}

QFont fontFor(const QVTextStyle &style)
{
    QFont font = style.font.resolveMask() ? style.font : qv_systemFont(style.pixelSize);
    // A host may have given its size in points.
    if (font.pixelSize() < 0)
        font.setPixelSize(QFontInfo(font).pixelSize());
    if (style.isItalic)
        font.setItalic(true);
    return font;
}

/// A blurred picture of the shape, in translucent black.
QImage shadowOf(const QImage &shape)
{
    constexpr int strength = 140;
    constexpr qreal blur = 2;
    QImage shadow = shape;
    QPainter painter(&shadow);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(shadow.rect(), QColor(0, 0, 0, strength));
    painter.end();
    const QSize small = (QSizeF(shape.size()) / (blur * shape.devicePixelRatio())).toSize();
    return qv_smoothlyScaled(qv_smoothlyScaled(shadow, small.expandedTo({1, 1})), shape.size());
}

} // namespace

void QVPaintedText::setText(const QString &text, const QImage &icon)
{
    m_text = text;
    m_line = qv_oneLine(text);
    m_icon = icon;
    m_key = {};
}

QSize QVPaintedText::sizeFor(int width) const
{
    const Lines lines = fitted({width, anyHeight});
    const QFontMetricsF metrics(lines.font);
    const int wanted = qCeil(widest(lines.texts, metrics) + iconSpace(lines.font));
    return {lines.isElided ? width : std::min(width, wanted),
            qCeil(metrics.height()) + qCeil(extraHeight(lines.texts, metrics))};
}

int QVPaintedText::extraHeightFor(int width) const
{
    // Without a text no font is loaded for it.
    if (m_line.isEmpty())
        return 0;
    const Lines lines = fitted({width, anyHeight});
    return qCeil(extraHeight(lines.texts, QFontMetricsF(lines.font)));
}

bool QVPaintedText::isElided(QSize room) const
{
    return fitted(room).isElided;
}

void QVPaintedText::paint(QPainter &painter, const QRect &room, const QColor &color)
{
    if (room.isEmpty() || (m_line.isEmpty() && m_icon.isNull()))
        return;
    // The painter's ratio, not the device's: a widget that is rendered elsewhere reports that of its screen.
    const qreal ratio = std::clamp(painter.deviceTransform().m11(), 1.0, QVScaledPicture::largestRatio);
    const Key key{room.size(), ratio, color, QGuiApplication::font()};
    if (key != m_key) {
        m_picture = picture(key);
        m_key = key;
    }
    painter.drawImage(room.topLeft(), m_picture);
}

QVPaintedText::Lines QVPaintedText::fitted(QSize room) const
{
    QFont font = fontFor(m_style);
    for (;; font.setPixelSize(font.pixelSize() - 1)) {
        Lines lines = broken(font, room);
        if (!lines.isElided || font.pixelSize() <= smallestPixelSize)
            return lines;
    }
}

QVPaintedText::Lines QVPaintedText::broken(const QFont &font, QSize room) const
{
    constexpr double step = 4;
    const double width = room.width() - iconSpace(font);
    Lines lines = broken(font, room, width);
    if (lines.isElided || lines.texts.size() < 2)
        return lines;
    const QFontMetricsF metrics(font);
    if (lines.texts.size() == 2) {
        // Between two sentences, where there are two that fit.
        const QStringList sentences = sentencesOf(m_line);
        if (sentences.size() == 2 && widest(sentences, metrics) <= width)
            return {font, sentences};
    }
    // The narrowest lines in which the text still fits have similar lengths, so that no word is alone in one.
    const double longestWord = widest(m_line.split(u' '), metrics);
    double narrow = metrics.horizontalAdvance(m_line) / double(lines.texts.size());
    for (narrow = std::max(narrow, longestWord); narrow < width; narrow += step) {
        Lines even = broken(font, room, narrow);
        if (!even.isElided && even.texts.size() == lines.texts.size())
            return even;
    }
    return lines;
}

QVPaintedText::Lines QVPaintedText::broken(const QFont &font, QSize room, double width) const
{
    const QFontMetricsF metrics(font);
    const int most = std::clamp(int(room.height() / metrics.lineSpacing()), 1, m_style.mostLines);
    Lines result{font, {}};
    QString rest = m_line;
    if (most > 1) {
        QTextOption wrapping;
        wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        QTextLayout layout(m_line, font);
        layout.setTextOption(wrapping);
        layout.beginLayout();
        for (int i = 1; i < most && !rest.isEmpty(); ++i) {
            QTextLine line = layout.createLine();
            line.setLineWidth(width);
            result.texts.append(rest.left(line.textLength()).trimmed());
            rest = rest.mid(line.textLength());
        }
        layout.endLayout();
    }
    if (rest.isEmpty())
        return result;
    result.texts.append(metrics.elidedText(rest, Qt::ElideRight, width));
    result.isElided =
        result.texts.constLast() != rest || metrics.height() * double(result.texts.size()) > room.height();
    return result;
}

qreal QVPaintedText::iconSpace(const QFont &font) const
{
    if (m_icon.isNull())
        return 0;
    return m_line.isEmpty() ? iconSide : iconSide + QFontMetricsF(font).horizontalAdvance(u' ');
}

QImage QVPaintedText::picture(const Key &key) const
{
    QImage ink((QSizeF(key.size) * key.ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    ink.setDevicePixelRatio(key.ratio);
    ink.fill(Qt::transparent);
    QPainter painter(&ink);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setPen(key.color);
    draw(painter, key.size);
    if (m_style.hasShadow) {
        // Behind the text, one pixel lower.
        const QImage shadow = shadowOf(ink);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
        painter.drawImage(QRectF(QPointF(0, 1), QSizeF(key.size)), shadow);
    }
    painter.end();
    return ink;
}

void QVPaintedText::draw(QPainter &painter, QSize room) const
{
    const Lines lines = fitted(room);
    const QFontMetricsF metrics(lines.font);
    const bool hasIcon = !m_icon.isNull();
    // The icon counts for the height of the line, as a letter of that size would.
    const double ascent = std::max(metrics.ascent(), hasIcon ? iconSide - iconBelowBaseline : 0);
    const double descent = std::max(metrics.descent(), hasIcon ? iconBelowBaseline : 0);
    const double extra = extraHeight(lines.texts, metrics);
    const double space = iconSpace(lines.font);
    const double width = widest(lines.texts, metrics);
    const auto aligned = [&](double free) {
        if (m_style.alignment & Qt::AlignLeft)
            return 0.0;
        return std::max(0.0, m_style.alignment & Qt::AlignRight ? free : std::floor(free / 2));
    };
    const double left = aligned(room.width() - width - space);
    double baseline = std::round((room.height() - ascent - descent - extra) / 2 + ascent);
    if (hasIcon) {
        painter.drawImage(QRectF(left, baseline + iconBelowBaseline - iconSide, iconSide, iconSide), m_icon,
                          QRectF(m_icon.rect()));
    }
    painter.setFont(lines.font);
    // The direction follows the text, not the application: the two may have different languages.
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    for (const QString &line : lines.texts) {
        const double start = left + space + aligned(width - metrics.horizontalAdvance(line));
        painter.drawText(QPointF(start, baseline), line);
        baseline += metrics.lineSpacing();
    }
}
