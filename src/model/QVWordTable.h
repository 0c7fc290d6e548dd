#pragma once

#include <QStringView>

#include <optional>

/// What a word stands for where a boolean or a number is expected.
enum class QVWord { False, True, Null };

/// Looks \a text up among the words that services send in place of booleans and nulls. Exact:
/// "tRUE" is no word.
[[nodiscard]] std::optional<QVWord> qv_wordFromText(QStringView text);
