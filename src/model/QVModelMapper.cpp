#include "model/QVModelMapper.h"

#include "model/QVJsonConversion.h"

#include <QJsonObject>
#include <QMetaProperty>

namespace {

template<class Value>
QVariant variantOf(const std::optional<Value> &value)
{
    return value ? QVariant(*value) : QVariant();
}

/// Invalid if the value cannot be converted to \a type.
QVariant reading(const QJsonValue &value, int type)
{
    switch (type) {
    case QMetaType::QString:
        return variantOf(qv_textFromJson(value));
    case QMetaType::LongLong:
        return variantOf(qv_integerFromJson(value));
    case QMetaType::Double:
        return variantOf(qv_numberFromJson(value));
    case QMetaType::Bool:
        return variantOf(qv_booleanFromJson(value));
    case QMetaType::QStringList:
        return variantOf(qv_textListFromJson(value));
    default:
        return {};
    }
}

} // namespace

void QVModelMapper::fill(const QMetaObject &type, void *record, const QJsonObject &object)
{
    for (int index = 0; index < type.propertyCount(); ++index) {
        const QMetaProperty property = type.property(index);
        const auto member = object.constFind(QLatin1String(property.name()));
        if (member == object.constEnd() || !property.isWritable())
            continue;
        const QVariant value = reading(member.value(), property.typeId());
        if (value.isValid())
            property.writeOnGadget(record, value);
    }
}
