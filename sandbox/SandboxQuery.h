#pragma once

#include <QMap>
#include <QString>

/// The values of a query string. Clients paste values into it as they are, so whatever comes is
/// read as far as it makes sense and nothing is refused: a broken escape, a missing "=" and bytes
/// that are no UTF-8 all give some text.
class SandboxQuery
{
public:
    SandboxQuery() = default;
    explicit SandboxQuery(const QString &encoded);

    /// Null where the key is missing; the first one where it comes twice.
    [[nodiscard]] QString value(const QString &key) const { return m_values.value(key); }
    [[nodiscard]] const QMap<QString, QString> &values() const { return m_values; }

private:
    QMap<QString, QString> m_values;
};
