#pragma once

#include <QMap>
#include <QString>

/// The values of a query string. Clients insert values without encoding them, so nothing is refused: a broken
/// escape, a missing "=" and bytes that are not UTF-8 all give some text.
class SandboxQuery
{
public:
    SandboxQuery() = default;
    explicit SandboxQuery(const QString &encoded);

    /// The first value of a key; null if the key is missing.
    [[nodiscard]] QString value(const QString &key) const { return m_values.value(key); }
    [[nodiscard]] const QMap<QString, QString> &values() const { return m_values; }

private:
    QMap<QString, QString> m_values;
};
