#include "settings/QVStringsScanner.h"

#include <utility>

namespace {

constexpr qsizetype codeUnitDigits = 4;

} // namespace

QVStringsScanner::QVStringsScanner(QString text)
    : m_text(std::move(text))
{
}

bool QVStringsScanner::skipToEntry()
{
    while (!atEnd()) {
        if (m_text.at(m_position).isSpace())
            ++m_position;
        else if (startsWith(QLatin1String("/*")))
            skipTo(QLatin1String("*/"));
        else if (startsWith(QLatin1String("//")))
            skipLine();
        else
            return true;
    }
    return false;
}

bool QVStringsScanner::accept(QChar mark)
{
    const qsizetype start = m_position;
    if (skipToEntry() && m_text.at(m_position) == mark) {
        ++m_position;
        return true;
    }
    m_position = start;
    return false;
}

std::optional<QString> QVStringsScanner::quotedText()
{
    if (!accept(u'"'))
        return std::nullopt;
    QString result(QLatin1String(""));
    while (!atEnd() && m_text.at(m_position) != u'\n') {
        const QChar character = m_text.at(m_position++);
        if (character == u'"')
            return result;
        result.append(character == u'\\' ? escaped() : character);
    }
    return std::nullopt;
}

void QVStringsScanner::skipLine()
{
    skipTo(QLatin1String("\n"));
}

bool QVStringsScanner::startsWith(QLatin1String mark) const
{
    return QStringView(m_text).sliced(m_position).startsWith(mark);
}

void QVStringsScanner::skipTo(QLatin1String mark)
{
    const qsizetype found = m_text.indexOf(mark, m_position);
    m_position = found < 0 ? m_text.size() : found + mark.size();
}

QChar QVStringsScanner::escaped()
{
    if (atEnd() || m_text.at(m_position) == u'\n')
        return u'\\';
    const QChar character = m_text.at(m_position++);
    switch (character.unicode()) {
    case u'n':
        return u'\n';
    case u't':
        return u'\t';
    case u'r':
        return u'\r';
    case u'u':
    case u'U':
        if (const auto unit = codeUnit()) {
            m_position += codeUnitDigits;
            return *unit;
        }
        return character;
    default:
        return character;
    }
}

std::optional<QChar> QVStringsScanner::codeUnit() const
{
    const QStringView digits =
        QStringView(m_text).sliced(m_position).first(std::min(codeUnitDigits, m_text.size() - m_position));
    bool isNumber = false;
    const ushort unit = digits.toUShort(&isNumber, 16);
    if (!isNumber || digits.size() < codeUnitDigits)
        return std::nullopt;
    return QChar(unit);
}
