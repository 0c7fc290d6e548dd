#include "sandbox/SandboxQuery.h"

#include <QByteArray>

namespace {

// More than any client sends. They limit the size of a log entry.
constexpr qsizetype maximumPairs = 32;
constexpr qsizetype maximumValueLength = 4096;

QString decoded(QStringView text)
{
    QString result = QString::fromUtf8(QByteArray::fromPercentEncoding(text.toUtf8()));
    result.truncate(maximumValueLength);
    return result;
}

} // namespace

SandboxQuery::SandboxQuery(const QString &encoded)
{
    for (const QStringView pair : QStringView(encoded).split(u'&')) {
        if (m_values.size() == maximumPairs)
            return;
        const qsizetype separator = pair.indexOf(u'=');
        const QString key = decoded(separator < 0 ? pair : pair.left(separator));
        if (key.isEmpty() || m_values.contains(key))
            continue;
        m_values.insert(key, separator < 0 ? QStringLiteral("") : decoded(pair.mid(separator + 1)));
    }
}
