#include "settings/QVStringsTable.h"

#include "settings/QVStringsScanner.h"

#include <QFile>

namespace {

// Real tables are hundreds of times smaller.
constexpr qint64 maximumTableSize = 1 << 20;

} // namespace

QVStringsTable QVStringsTable::parse(const QByteArray &utf8)
{
    QVStringsTable table;
    QVStringsScanner scanner(QString::fromUtf8(utf8));
    while (scanner.skipToEntry()) {
        const auto key = scanner.quotedText();
        const bool assigned = key && scanner.accept(u'=') && scanner.skipToEntry();
        const QVStringsScanner beforeValue = scanner;
        const auto value = assigned ? scanner.quotedText() : std::nullopt;
        if (value && scanner.accept(u'=')) {
            // The value is missing: this text is the key of the next entry.
            scanner = beforeValue;
            continue;
        }
        if (value)
            table.m_texts.insert(*key, *value);
        if (!value || !scanner.accept(u';'))
            scanner.skipLine();
    }
    return table;
}

QVStringsTable QVStringsTable::read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return parse(file.read(maximumTableSize));
}
