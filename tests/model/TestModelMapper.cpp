#include "model/QVModelMapper.h"
#include "service/QVConfigResponseModel.h"
#include "support/QVTestCase.h"

#include <QJsonArray>
#include <QJsonObject>

#include <limits>

namespace {

/// A record with a member of each kind, filled over values that are easily told from the mapped ones.
struct Mapped
{
    explicit Mapped(const QJsonObject &object)
    {
        record.setGetRefreshCount(-5);
        record.setConfigTimeInterval(-0.5);
        QVModelMapper::fill(record, object);
    }
    Mapped(const char *name, const QJsonValue &value)
        : Mapped(QJsonObject{{q(name), value}})
    {
    }

    QVConfigResponseModel record;
};

QJsonValue text(const char *value)
{
    return QJsonValue(QString::fromUtf8(value));
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
                                                {2.9, 2},
                                                {true, 1},
                                                {text("0104"), 104},
                                                {text("-12"), -12},
                                                {text("Yes"), 1},
                                                {text("0x10"), kept},
                                                {text(""), kept},
                                                {QJsonValue(), kept},
                                                {QJsonArray{1}, kept},
                                                {9223372036854775808.0, kept},
                                                {1e300, kept},
                                                {-1e300, kept},
                                                {text("9223372036854775808"), kept}};
        for (const auto &[json, expected] : cases)
            QCOMPARE(Mapped("getRefreshCount", json).record.getRefreshCount(), expected);
    }

    void numbers()
    {
        const QVCases<QJsonValue, double> cases{
            {2.5, 2.5}, {infinite, -0.5}, {text("0.25"), 0.25}, {text("TRUE"), 1}, {text("1.5e999"), -0.5}};
        for (const auto &[json, expected] : cases)
            QCOMPARE(Mapped("configTimeInterval", json).record.configTimeInterval(), expected);
    }

    void booleans()
    {
        const QVCases<QJsonValue, bool> cases{{0.25, true},
                                              {text("YES"), true},
                                              {text("0"), false},
                                              {text("y"), false},
                                              {QJsonArray{true}, false}};
        for (const auto &[json, expected] : cases)
            QCOMPARE(Mapped("guide", json).record.guide(), expected);
    }

    void texts()
    {
        const QVCases<QJsonValue, QString> cases{
            {text("0103"), q("0103")},           {text(""), q("")}, {0.1, q("0.1")},
            {largest, q("9223372036854775807")}, {true, q("1")},    {QJsonValue(), QString()},
            {QJsonArray{q("a")}, QString()}};
        for (const auto &[json, expected] : cases) {
            QCOMPARE(Mapped("challenge", json).record.challenge(), expected);
            QCOMPARE(Mapped("challenge", json).record.challenge().isNull(), expected.isNull());
        }
    }

    void listsKeepTheirPositions()
    {
        const QJsonArray elements{QJsonValue(), q("a"), 5, QJsonArray{}, q("")};
        const QStringList list = Mapped("cdn_servers", elements).record.cdn_servers();
        QCOMPARE(list, QStringList({QString(), q("a"), q("5"), QString(), QString()}));
        QVERIFY(list.at(0).isNull());
        QVERIFY(!list.at(4).isNull());
    }

    void goesThroughSettersOfExactlyTheSameName()
    {
        const Mapped mapped({{q("api_server"), q("a.example")},
                             {q("apiserver"), q("b")},
                             {q("Challenge"), q("b")},
                             {q("code"), q("0103")},
                             {q("unknown"), QJsonObject{}},
                             {QString(), 3}});
        QCOMPARE(mapped.record.api_server(), q("https://a.example"));
        QVERIFY(mapped.record.challenge().isNull());
        QCOMPARE(mapped.record.code(), q("0103"));
    }

    void words()
    {
        const QVCases<const char *, qint64> cases{
            {"TRUE|True|true|YES|Yes|yes", 1},
            {"FALSE|False|false|NO|No|no", 0},
            // Left alone, as are all other texts.
            {"NIL|Nil|nil|NULL|Null|null|(NULL)|(Null)|(null)|<NULL>|<Null>|<null>", -5},
            {"tRUE|oui|(nil)|<nil>|(NULL>| true|true |Y||nо", -5}};
        for (const auto &[words, expected] : cases) {
            for (const QString &word : QString::fromUtf8(words).split(u'|'))
                QVERIFY2(Mapped("getRefreshCount", word).record.getRefreshCount() == expected,
                         qPrintable(word));
        }
    }
};

QV_TEST(TestModelMapper)
#include "TestModelMapper.moc"
