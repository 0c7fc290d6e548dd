#pragma once

#include <QStringView>

#include <optional>

/// The meaning of a word in place of a boolean or a number.
enum class QVWord { False, True, Null };

/// Looks \a text up among the words that services send in place of booleans and nulls. Case counts: "tRUE" is
/// not one of them.
[[nodiscard]] std::optional<QVWord> qv_wordFromText(QStringView text);
