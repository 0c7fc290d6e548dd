#pragma once

#include <QString>

#include <optional>

/// Walks over the text of a strings file, token by token.
class QVStringsScanner
{
public:
    explicit QVStringsScanner(QString text);

    /// Moves past blanks and comments; tells whether anything is left.
    [[nodiscard]] bool skipToEntry();
    /// Takes \a mark if it is the next token, else stays where it is.
    [[nodiscard]] bool accept(QChar mark);
    /// Takes a text in double quotes, its escapes resolved. It ends on its own line: a forgotten
    /// quote must not swallow the entries below.
    [[nodiscard]] std::optional<QString> quotedText();
    void skipLine();

private:
    [[nodiscard]] bool atEnd() const { return m_position >= m_text.size(); }
    [[nodiscard]] bool startsWith(QLatin1String mark) const;
    void skipTo(QLatin1String mark);
    QChar escaped();
    [[nodiscard]] std::optional<QChar> codeUnit() const;

    QString m_text;
    qsizetype m_position = 0;
};
