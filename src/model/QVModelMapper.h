#pragma once

class QJsonObject;
struct QMetaObject;

/// Fills a record from a JSON object. Each property of the gadget type is set to the member of exactly the
/// same name, in the order of declaration, those of base classes first.
///
/// A property keeps its value if it has no setter, or if the member is missing or cannot be converted to its
/// type.
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
