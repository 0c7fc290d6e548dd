#include "model/QVJsonConversion.h"

#include "model/QVWordTable.h"

#include <QJsonArray>
#include <QJsonValue>
#include <QLocale>

#include <cmath>
#include <variant>

namespace {

using Number = std::variant<qint64, double>;

std::optional<Number> numberFromDouble(const QJsonValue &value)
{
    // Both calls return the same only if the value is an integer; otherwise each returns its default.
    const qint64 integer = value.toInteger(0);
    if (integer == value.toInteger(1))
        return integer;
    const double number = value.toDouble();
    if (!std::isfinite(number))
        return std::nullopt;
    return number;
}

std::optional<Number> numberFromDecimals(const QString &text)
{
    bool isNumber = false;
    if (text.contains(u'.')) {
        const double number = text.toDouble(&isNumber);
        return isNumber ? std::optional<Number>(number) : std::nullopt;
    }
    const qint64 integer = text.toLongLong(&isNumber);
    return isNumber ? std::optional<Number>(integer) : std::nullopt;
}

std::optional<Number> numberFromText(const QString &text)
{
    const std::optional<QVWord> word = qv_wordFromText(text);
    if (!word)
        return numberFromDecimals(text);
    if (*word == QVWord::Null)
        return std::nullopt;
    return *word == QVWord::True ? qint64(1) : qint64(0);
}

std::optional<Number> numberFromJson(const QJsonValue &value)
{
    switch (value.type()) {
    case QJsonValue::Bool:
        return value.toBool() ? qint64(1) : qint64(0);
    case QJsonValue::Double:
        return numberFromDouble(value);
    case QJsonValue::String:
        return numberFromText(value.toString());
    default:
        return std::nullopt;
    }
}

std::optional<qint64> truncated(double number)
{
    constexpr double limit = 9223372036854775808.0;
    if (number < -limit || number >= limit)
        return std::nullopt;
    return static_cast<qint64>(number);
}

} // namespace

std::optional<QString> qv_textFromJson(const QJsonValue &value)
{
    if (value.isString())
        return value.toString();
    const std::optional<Number> number = numberFromJson(value);
    if (!number)
        return std::nullopt;
    if (const auto *integer = std::get_if<qint64>(&*number))
        return QString::number(*integer);
    return QString::number(std::get<double>(*number), 'g', QLocale::FloatingPointShortest);
}

std::optional<qint64> qv_integerFromJson(const QJsonValue &value)
{
    const std::optional<Number> number = numberFromJson(value);
    if (!number)
        return std::nullopt;
    if (const auto *integer = std::get_if<qint64>(&*number))
        return *integer;
    return truncated(std::get<double>(*number));
}

std::optional<double> qv_numberFromJson(const QJsonValue &value)
{
    const std::optional<Number> number = numberFromJson(value);
    if (!number)
        return std::nullopt;
    return std::visit([](auto held) { return static_cast<double>(held); }, *number);
}

std::optional<bool> qv_booleanFromJson(const QJsonValue &value)
{
    const std::optional<Number> number = numberFromJson(value);
    if (!number)
        return std::nullopt;
    return std::visit([](auto held) { return held != 0; }, *number);
}

std::optional<QStringList> qv_textListFromJson(const QJsonValue &value)
{
    if (!value.isArray())
        return std::nullopt;
    const QJsonArray elements = value.toArray();
    QStringList list;
    list.reserve(elements.size());
    for (const QJsonValue element : elements)
        list.append(qv_textFromJson(element).value_or(QString()));
    return list;
}
