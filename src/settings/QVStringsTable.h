#pragma once

#include <QHash>
#include <QString>

/// The texts of a strings file: entries `"key" = "value";` with C-style comments, in UTF-8.
///
/// A host may ship such a file, so whatever cannot be read costs its own line and no other.
class QVStringsTable
{
public:
    QVStringsTable() = default;

    [[nodiscard]] static QVStringsTable parse(const QByteArray &utf8);
    /// Reads a file; a missing one gives an empty table, and what lies beyond 1 MiB is left out.
    [[nodiscard]] static QVStringsTable read(const QString &path);

    /// The text, null where there is no such key.
    [[nodiscard]] QString text(const QString &key) const { return m_texts.value(key); }
    [[nodiscard]] bool contains(const QString &key) const { return m_texts.contains(key); }
    [[nodiscard]] QStringList keys() const { return m_texts.keys(); }

private:
    QHash<QString, QString> m_texts;
};
