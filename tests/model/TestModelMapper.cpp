#include "model/QVModelMapper.h"
#include "service/QVConfigResponseModel.h"
#include "support/QVTestCase.h"

#include <QJsonArray>
#include <QJsonObject>

#include <limits>

namespace {

/// Maps \a value to a field of a record, whose fields have distinctive values before.
QVariant mapped(const char *name, const QJsonValue &value)
{
    QVConfigResponseModel record;
    record.setGetRefreshCount(-5);
    record.setConfigTimeInterval(-0.5);
    QVModelMapper::fill(record, {{q(name), value}});
    const QMetaObject &type = QVConfigResponseModel::staticMetaObject;
    return type.property(type.indexOfProperty(name)).readOnGadget(&record);
}

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr qint64 largest = std::numeric_limits<qint64>::max();

} // namespace

class TestModelMapper : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void integers()
    {
        constexpr qint64 kept = -5;
        const QVCases<QJsonValue, qint64> cases{{largest, largest},
                                                {1, 1},
                                                {2.9, 2},
                                                {true, 1},
                                                {q("0104"), 104},
                                                {q("-12"), -12},
                                                {q("0x10"), kept},
                                                {q(""), kept},
                                                {QJsonValue(), kept},
                                                {QJsonArray{1}, kept},
                                                {9223372036854775808.0, kept},
                                                {1e300, kept},
                                                {-1e300, kept},
                                                {q("9223372036854775808"), kept}};
        for (const auto &[json, expected] : cases)
            QCOMPARE(mapped("getRefreshCount", json), QVariant(expected));
        const QVCases<const char *, qint64> words{
            {"TRUE|True|true|YES|Yes|yes", 1},
            {"FALSE|False|false|NO|No|no", 0},
            // These leave the field unchanged, as all other texts do.
            {"NIL|Nil|nil|NULL|Null|null|(NULL)|(Null)|(null)|<NULL>|<Null>|<null>", kept},
            {"tRUE|oui|(nil)|<nil>|(NULL>| true|true |Y||nо", kept}};
        for (const auto &[list, expected] : words) {
            for (const QString &word : q(list).split(u'|'))
                QVERIFY2(mapped("getRefreshCount", word) == QVariant(expected), qPrintable(word));
        }
    }

    void others()
    {
        const QVCases<const char *, QJsonValue, QVariant> cases{
            {"configTimeInterval", 2.5, 2.5},
            {"configTimeInterval", infinite, -0.5},
            {"configTimeInterval", q("0.25"), 0.25},
            {"configTimeInterval", q("TRUE"), 1.0},
            {"configTimeInterval", q("1.5e999"), -0.5},
            {"guide", 0.25, true},
            {"guide", q("YES"), true},
            {"guide", q("0"), false},
            {"guide", q("y"), false},
            {"guide", QJsonArray{true}, false},
            {"challenge", q("0103"), q("0103")},
            {"challenge", q(""), q("")},
            {"challenge", 0.1, q("0.1")},
            {"challenge", largest, q("9223372036854775807")},
            {"challenge", true, q("1")},
            {"challenge", QJsonValue(), QString()},
            {"challenge", QJsonArray{q("a")}, QString()},
            // Positions are kept.
            {"cdn_servers", QJsonArray{QJsonValue(), q("a"), 5, QJsonArray{}, q("")},
             QStringList{QString(), q("a"), q("5"), QString(), q("")}},
            // The setter is used.
            {"api_server", q("a.example"), q("https://a.example")}};
        for (const auto &[name, json, expected] : cases) {
            QCOMPARE(mapped(name, json), expected);
            QCOMPARE(mapped(name, json).toString().isNull(), expected.toString().isNull());
            QCOMPARE(mapped(name, json).toStringList().value(0).isNull(),
                     expected.toStringList().value(0).isNull());
        }
    }

    void namesAreExactAndEarlierValuesStick()
    {
        QVConfigResponseModel record;
        QVModelMapper::fill(record, {{q("apiserver"), q("b")},
                                     {q("Challenge"), q("b")},
                                     {q("api_server"), q("a")},
                                     {q("code"), q("0103")},
                                     {q("type"), q("character")},
                                     {q("unknown"), QJsonObject{}},
                                     {QString(), 3}});
        QVERIFY(record.challenge().isNull());
        QVModelMapper::fill(record, {{q("api_server"), q("")}, {q("type"), q("draw")}});
        QCOMPARE(record.api_server(), q("https://a"));
        QVERIFY(record.isCharVerify() && record.type() == q("draw"));
        QCOMPARE(record.code(), q("0103"));
    }
};

QV_TEST(TestModelMapper)
#include "TestModelMapper.moc"
