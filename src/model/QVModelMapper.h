#pragma once

class QJsonObject;
struct QMetaObject;

/// Fills a record from a JSON object: each property of the record's gadget type takes the member of
/// exactly the same name, through its setter, in the order of declaration with bases first.
///
/// A property without a setter cannot be filled, and a member that is missing, or that has no
/// reading as the property's type, leaves the property alone.
class QVModelMapper
{
public:
    QVModelMapper() = delete;

    template<class Record>
    static void fill(Record &record, const QJsonObject &object)
    {
        fill(Record::staticMetaObject, &record, object);
    }

private:
    static void fill(const QMetaObject &type, void *record, const QJsonObject &object);
};
