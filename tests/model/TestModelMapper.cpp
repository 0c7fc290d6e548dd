#include "model/QVModelMapper.h"
#include "support/QVTestCase.h"

#include <QJsonArray>
#include <QJsonObject>

#include <limits>

namespace {

/// Counts what went through its setters.
class BaseRecord
{
    Q_GADGET
    Q_PROPERTY(QString text READ text WRITE setText)

public:
    [[nodiscard]] QString text() const { return m_text; }
    void setText(const QString &text)
    {
        m_text = text;
        ++m_textCalls;
    }
    [[nodiscard]] int textCalls() const { return m_textCalls; }

private:
    QString m_text;
    int m_textCalls = 0;
};

class Record : public BaseRecord
{
    Q_GADGET
    Q_PROPERTY(bool flag MEMBER flag)
    Q_PROPERTY(qint64 under_score MEMBER integer)
    Q_PROPERTY(double number MEMBER number)
    Q_PROPERTY(QStringList list MEMBER list)
    Q_PROPERTY(qint64 fixed READ fixed)

public:
    [[nodiscard]] qint64 fixed() const { return 7; }

    bool flag = false;
    qint64 integer = -5;
    double number = -0.5;
    QStringList list{q("kept")};
};

Record mapped(const QJsonObject &object)
{
    Record record;
    QVModelMapper::fill(record, object);
    return record;
}

Record mapped(const char *name, const QJsonValue &value)
{
    return mapped({{QString::fromLatin1(name), value}});
}

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
            QCOMPARE(mapped("under_score", json).integer, expected);
    }

    void numbers()
    {
        const QVCases<QJsonValue, double> cases{
            {2.5, 2.5}, {infinite, -0.5}, {text("0.25"), 0.25}, {text("TRUE"), 1}, {text("1.5e999"), -0.5}};
        for (const auto &[json, expected] : cases)
            QCOMPARE(mapped("number", json).number, expected);
    }

    void booleans()
    {
        const QVCases<QJsonValue, bool> cases{{0.25, true},
                                              {text("YES"), true},
                                              {text("0"), false},
                                              {text("y"), false},
                                              {QJsonArray{true}, false}};
        for (const auto &[json, expected] : cases)
            QCOMPARE(mapped("flag", json).flag, expected);
    }

    void texts()
    {
        const QVCases<QJsonValue, QString> cases{
            {text("0103"), q("0103")},           {text(""), q("")}, {0.1, q("0.1")},
            {largest, q("9223372036854775807")}, {true, q("1")},    {QJsonValue(), QString()},
            {QJsonArray{q("a")}, QString()}};
        for (const auto &[json, expected] : cases) {
            QCOMPARE(mapped("text", json).text(), expected);
            QCOMPARE(mapped("text", json).text().isNull(), expected.isNull());
        }
    }

    void listsKeepTheirPositions()
    {
        const QJsonArray elements{QJsonValue(), q("a"), 5, QJsonArray{}, q("")};
        const QStringList list = mapped("list", elements).list;
        QCOMPARE(list, QStringList({QString(), q("a"), q("5"), QString(), QString()}));
        QVERIFY(list.at(0).isNull());
        QVERIFY(!list.at(4).isNull());
        QCOMPARE(mapped("list", QJsonArray{}).list, QStringList());
    }

    void goesThroughSettersOfExactlyTheSameName()
    {
        const Record record = mapped({{q("text"), q("a")},
                                      {q("Text"), q("b")},
                                      {q("underscore"), 1},
                                      {q("fixed"), 8},
                                      {q("unknown"), QJsonObject{}},
                                      {QString(), 3}});
        QCOMPARE(record.text(), q("a"));
        QCOMPARE(record.textCalls(), 1);
        QCOMPARE(record.integer, -5);
        QCOMPARE(record.fixed(), 7);
        QCOMPARE(mapped({}).textCalls(), 0);
    }
};

QV_TEST(TestModelMapper)
#include "TestModelMapper.moc"
