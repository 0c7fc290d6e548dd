#pragma once

#include <QHash>
#include <QString>

/// The texts of a strings file: entries `"key" = "value";` with C-style comments, in UTF-8.
///
/// A host may ship such a file. A line that cannot be read is skipped, without effect on the others.
class QVStringsTable
{
public:
    QVStringsTable() = default;

    [[nodiscard]] static QVStringsTable parse(const QByteArray &utf8);
    /// Reads a file. A missing file gives an empty table. Only the first MiB is read.
    [[nodiscard]] static QVStringsTable read(const QString &path);

    /// The text; null if there is no such key.
    [[nodiscard]] QString text(const QString &key) const { return m_texts.value(key); }
    [[nodiscard]] bool contains(const QString &key) const { return m_texts.contains(key); }
    [[nodiscard]] QStringList keys() const { return m_texts.keys(); }

private:
    QHash<QString, QString> m_texts;
};
