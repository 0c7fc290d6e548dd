#include "model/QVModelMapper.h"

#include "model/QVJsonConversion.h"

#include <QJsonObject>

namespace {

template<class Value>
QVariant variantFrom(std::optional<Value> value)
{
    return value ? QVariant::fromValue(*std::move(value)) : QVariant();
}

QVariant converted(const QJsonValue &value, int type)
{
    switch (type) {
    case QMetaType::QString:
        return variantFrom(qv_textFromJson(value));
    case QMetaType::LongLong:
        return variantFrom(qv_integerFromJson(value));
    case QMetaType::Double:
        return variantFrom(qv_numberFromJson(value));
    case QMetaType::Bool:
        return variantFrom(qv_booleanFromJson(value));
    case QMetaType::QStringList:
        return variantFrom(qv_textListFromJson(value));
    default:
        return {};
    }
}

} // namespace

QVModelMapper::QVModelMapper(const QMetaObject &type)
{
    for (int index = 0; index < type.propertyCount(); ++index) {
        const QMetaProperty property = type.property(index);
        if (property.isWritable())
            m_fields.push_back({QString::fromLatin1(property.name()), property});
    }
}

void QVModelMapper::apply(const QJsonObject &object, void *record) const
{
    for (const Field &field : m_fields) {
        const auto member = object.constFind(field.name);
        if (member == object.constEnd())
            continue;
        const QVariant value = converted(member.value(), field.property.typeId());
        if (value.isValid())
            field.property.writeOnGadget(record, value);
    }
}
