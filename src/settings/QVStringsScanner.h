#pragma once

#include <QString>

#include <optional>

/// Reads the text of a strings file, token by token.
class QVStringsScanner
{
public:
    explicit QVStringsScanner(QString text);

    /// Skips blanks and comments. Returns whether anything is left.
    [[nodiscard]] bool skipToEntry();
    /// Reads \a mark if it is the next token. Returns whether it was.
    [[nodiscard]] bool accept(QChar mark);
    /// Reads a text in double quotes and resolves its escapes. It must end on its line, so that a missing
    /// quote does not swallow the entries below.
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
