// Strings tables: a table that is written again, with all characters escaped, must be read as the same table.
#include "fuzz/FuzzInput.h"
#include "settings/QVStringsTable.h"

namespace {

QString escaped(const QString &text)
{
    QString result = QStringLiteral("\"");
    for (const QChar character : text)
        result += QStringLiteral("\\U%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
    return result + u'"';
}

QString written(const QVStringsTable &table)
{
    QString result;
    for (const QString &key : table.keys())
        result += escaped(key) + QStringLiteral(" = ") + escaped(table.text(key)) + QStringLiteral(";\n");
    return result;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QVStringsTable table = QVStringsTable::parse(fuzzBytes(data, size));
    const QVStringsTable again = QVStringsTable::parse(written(table).toUtf8());
    fuzzRequire(again.keys().size() == table.keys().size());
    for (const QString &key : table.keys()) {
        fuzzRequire(!table.text(key).isNull());
        fuzzRequire(again.contains(key) && again.text(key) == table.text(key));
    }
    return 0;
}
