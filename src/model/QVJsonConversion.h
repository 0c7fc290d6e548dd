#pragma once

#include <QStringList>

#include <optional>

class QJsonValue;

// Each converts a JSON value to the type of a field. The result is empty if the value cannot be converted
// (null, objects, arrays, text that is not a number, numbers out of range). The field then keeps its default.

[[nodiscard]] std::optional<QString> qv_textFromJson(const QJsonValue &value);
/// Fractions are cut off.
[[nodiscard]] std::optional<qint64> qv_integerFromJson(const QJsonValue &value);
[[nodiscard]] std::optional<double> qv_numberFromJson(const QJsonValue &value);
/// Every number but zero is true.
[[nodiscard]] std::optional<bool> qv_booleanFromJson(const QJsonValue &value);
/// Keeps the positions: an element that cannot be converted to text becomes a null text.
[[nodiscard]] std::optional<QStringList> qv_textListFromJson(const QJsonValue &value);
