// Words and numbers of the mapping: the readings of one value as different types agree.
#include "fuzz/FuzzInput.h"
#include "model/QVJsonConversion.h"
#include "model/QVWordTable.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>

#include <cmath>

namespace {

void checkNumber(const QJsonValue &value)
{
    const auto number = qv_numberFromJson(value);
    const auto integer = qv_integerFromJson(value);
    const auto boolean = qv_booleanFromJson(value);
    fuzzRequire(!number || std::isfinite(*number));
    fuzzRequire(boolean.has_value() == number.has_value());
    fuzzRequire(!boolean || *boolean == (*number != 0.0));
    fuzzRequire(!integer || number);
    // Whole numbers beyond 2^53 have no exact neighbour among the others.
    constexpr double exact = 9007199254740992.0;
    if (integer && std::abs(*number) < exact)
        fuzzRequire(static_cast<double>(*integer) == std::trunc(*number));
    if (number && !integer)
        fuzzRequire(std::abs(*number) >= 9223372036854775807.0);
}

void checkText(const QJsonValue &value)
{
    const auto text = qv_textFromJson(value);
    if (value.isString()) {
        fuzzRequire(text && *text == value.toString());
        const auto word = qv_wordFromText(*text);
        fuzzRequire(!word || qv_numberFromJson(value).has_value() == (*word != QVWord::Null));
    } else if (text) {
        const auto number = qv_numberFromJson(value);
        bool isNumber = false;
        fuzzRequire(number && text->toDouble(&isNumber) == *number && isNumber);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes = FuzzInput(data, size).rest();
    QJsonArray values = QJsonDocument::fromJson('[' + bytes + ']').array();
    values.append(QString::fromUtf8(bytes));
    for (const QJsonValue value : values) {
        checkNumber(value);
        checkText(value);
        const auto list = qv_textListFromJson(value);
        fuzzRequire(list.has_value() == value.isArray());
        fuzzRequire(!list || list->size() == value.toArray().size());
    }
    return 0;
}
