#include "model/QVModelMapper.h"

#include "model/QVJsonConversion.h"

#include <QJsonObject>

#include <array>
#include <optional>

void QVModelMapper::Field::write(void *record, const QJsonValue &value) const
{
    switch (property.typeId()) {
    case QMetaType::QString:
        return set(record, qv_textFromJson(value));
    case QMetaType::LongLong:
        return set(record, qv_integerFromJson(value));
    case QMetaType::Double:
        return set(record, qv_numberFromJson(value));
    case QMetaType::Bool:
        return set(record, qv_booleanFromJson(value));
    case QMetaType::QStringList:
        return set(record, qv_textListFromJson(value));
    default:
        return;
    }
}

template<class Value>
void QVModelMapper::Field::set(void *record, std::optional<Value> value) const
{
    if (!value)
        return;
    // What QMetaProperty::writeOnGadget() calls in the end. Going there directly saves making a QVariant
    // of each value, which took longer than all else together.
    int status = -1;
    int flags = 0;
    std::array<void *, 4> arguments{&*value, nullptr, &status, &flags};
    property.enclosingMetaObject()->d.static_metacall(static_cast<QObject *>(record),
                                                      QMetaObject::WriteProperty,
                                                      property.relativePropertyIndex(), arguments.data());
}

QVModelMapper::QVModelMapper(const QMetaObject &type)
{
    for (int index = 0; index < type.propertyCount(); ++index) {
        const QMetaProperty property = type.property(index);
        if (property.isWritable())
            m_fields.push_back({QLatin1String(property.name()), property});
    }
}

void QVModelMapper::apply(const QJsonObject &object, void *record) const
{
    for (const Field &field : m_fields) {
        const auto member = object.constFind(field.name);
        if (member != object.constEnd())
            field.write(record, member.value());
    }
}
