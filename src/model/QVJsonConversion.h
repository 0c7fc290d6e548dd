#pragma once

#include <QStringList>

#include <optional>

class QJsonValue;

// A JSON value as the type of the field it goes into. Nothing comes back where the value has no
// reading as that type (null, objects, arrays, text that is no number, numbers out of range): the
// field then keeps its default.

[[nodiscard]] std::optional<QString> qv_textFromJson(const QJsonValue &value);
/// Fractions are cut off.
[[nodiscard]] std::optional<qint64> qv_integerFromJson(const QJsonValue &value);
[[nodiscard]] std::optional<double> qv_numberFromJson(const QJsonValue &value);
/// Every number but zero is true.
[[nodiscard]] std::optional<bool> qv_booleanFromJson(const QJsonValue &value);
/// Keeps the positions: an element that has no reading as text becomes an absent one.
[[nodiscard]] std::optional<QStringList> qv_textListFromJson(const QJsonValue &value);
