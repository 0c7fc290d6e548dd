#pragma once

#include <QLatin1String>
#include <QMetaProperty>

#include <optional>
#include <vector>

class QJsonObject;
class QJsonValue;

/// Fills a record from a JSON object: each property of the record's gadget type takes the member of
/// exactly the same name, through its setter, in the order of declaration with bases first.
///
/// A property without a setter cannot be filled, and a member that is missing, or that has no
/// reading as the property's type, leaves the property alone.
class QVModelMapper
{
public:
    explicit QVModelMapper(const QMetaObject &type);

    template<class Record>
    static void fill(Record &record, const QJsonObject &object)
    {
        // The properties of a type are looked up once, not for each answer.
        static const QVModelMapper mapper(Record::staticMetaObject);
        mapper.apply(object, &record);
    }

private:
    struct Field
    {
        QLatin1String name;
        QMetaProperty property;

        void write(void *record, const QJsonValue &value) const;
        template<class Value>
        void set(void *record, std::optional<Value> value) const;
    };

    void apply(const QJsonObject &object, void *record) const;

    std::vector<Field> m_fields;
};
