#include "model/QVWordTable.h"

#include <QLatin1String>

#include <algorithm>
#include <array>

namespace {

struct Entry
{
    QLatin1String text;
    QVWord word;
};

constexpr std::array entries{
    Entry{QLatin1String("TRUE"), QVWord::True},   Entry{QLatin1String("True"), QVWord::True},
    Entry{QLatin1String("true"), QVWord::True},   Entry{QLatin1String("YES"), QVWord::True},
    Entry{QLatin1String("Yes"), QVWord::True},    Entry{QLatin1String("yes"), QVWord::True},
    Entry{QLatin1String("FALSE"), QVWord::False}, Entry{QLatin1String("False"), QVWord::False},
    Entry{QLatin1String("false"), QVWord::False}, Entry{QLatin1String("NO"), QVWord::False},
    Entry{QLatin1String("No"), QVWord::False},    Entry{QLatin1String("no"), QVWord::False},
    Entry{QLatin1String("NIL"), QVWord::Null},    Entry{QLatin1String("Nil"), QVWord::Null},
    Entry{QLatin1String("nil"), QVWord::Null},    Entry{QLatin1String("NULL"), QVWord::Null},
    Entry{QLatin1String("Null"), QVWord::Null},   Entry{QLatin1String("null"), QVWord::Null},
    Entry{QLatin1String("(NULL)"), QVWord::Null}, Entry{QLatin1String("(Null)"), QVWord::Null},
    Entry{QLatin1String("(null)"), QVWord::Null}, Entry{QLatin1String("<NULL>"), QVWord::Null},
    Entry{QLatin1String("<Null>"), QVWord::Null}, Entry{QLatin1String("<null>"), QVWord::Null},
};

} // namespace

std::optional<QVWord> qv_wordFromText(QStringView text)
{
    const auto *const found =
        std::ranges::find_if(entries, [&](const Entry &entry) { return entry.text == text; });
    if (found == entries.end())
        return std::nullopt;
    return found->word;
}
