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
    QStringList list{QStringLiteral("kept")};
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
    void integers_data()
    {
        QTest::addColumn<QJsonValue>("json");
        QTest::addColumn<qint64>("expected");
        constexpr qint64 kept = -5;
        QTest::newRow("integer") << QJsonValue(12) << qint64(12);
        QTest::newRow("largest") << QJsonValue(largest) << largest;
        QTest::newRow("fraction") << QJsonValue(2.9) << qint64(2);
        QTest::newRow("negative fraction") << QJsonValue(-2.9) << qint64(-2);
        QTest::newRow("too large") << QJsonValue(9223372036854775808.0) << kept;
        QTest::newRow("huge") << QJsonValue(1e300) << kept;
        QTest::newRow("hugely negative") << QJsonValue(-1e300) << kept;
        QTest::newRow("infinite") << QJsonValue(infinite) << kept;
        QTest::newRow("true") << QJsonValue(true) << qint64(1);
        QTest::newRow("false") << QJsonValue(false) << qint64(0);
        QTest::newRow("text") << text("0104") << qint64(104);
        QTest::newRow("text with a point") << text("3.7") << qint64(3);
        QTest::newRow("negative text") << text("-12") << qint64(-12);
        QTest::newRow("yes") << text("Yes") << qint64(1);
        QTest::newRow("no") << text("no") << qint64(0);
        QTest::newRow("null word") << text("(null)") << kept;
        QTest::newRow("text too large") << text("9223372036854775808") << kept;
        QTest::newRow("text huge with a point") << text("1.0e400") << kept;
        QTest::newRow("exponent without a point") << text("1e3") << kept;
        QTest::newRow("hexadecimal") << text("0x10") << kept;
        QTest::newRow("words") << text("twelve") << kept;
        QTest::newRow("empty text") << text("") << kept;
        QTest::newRow("null") << QJsonValue() << kept;
        QTest::newRow("object") << QJsonValue(QJsonObject{{QStringLiteral("a"), 1}}) << kept;
        QTest::newRow("array") << QJsonValue(QJsonArray{1}) << kept;
    }

    void integers()
    {
        QFETCH(const QJsonValue, json);
        QFETCH(const qint64, expected);
        QCOMPARE(mapped("under_score", json).integer, expected);
    }

    void numbers_data()
    {
        QTest::addColumn<QJsonValue>("json");
        QTest::addColumn<double>("expected");
        QTest::newRow("number") << QJsonValue(2.5) << 2.5;
        QTest::newRow("integer") << QJsonValue(3) << 3.0;
        QTest::newRow("huge") << QJsonValue(1e300) << 1e300;
        QTest::newRow("infinite") << QJsonValue(infinite) << -0.5;
        QTest::newRow("text") << text("0.25") << 0.25;
        QTest::newRow("integer text") << text("12") << 12.0;
        QTest::newRow("true word") << text("TRUE") << 1.0;
        QTest::newRow("text that overflows") << text("1.5e999") << -0.5;
        QTest::newRow("true") << QJsonValue(true) << 1.0;
        QTest::newRow("null") << QJsonValue() << -0.5;
    }

    void numbers()
    {
        QFETCH(const QJsonValue, json);
        QFETCH(const double, expected);
        QCOMPARE(mapped("number", json).number, expected);
    }

    void booleans_data()
    {
        QTest::addColumn<QJsonValue>("json");
        QTest::addColumn<bool>("expected");
        QTest::newRow("true") << QJsonValue(true) << true;
        QTest::newRow("one") << QJsonValue(1) << true;
        QTest::newRow("small fraction") << QJsonValue(0.25) << true;
        QTest::newRow("zero") << QJsonValue(0) << false;
        QTest::newRow("yes") << text("YES") << true;
        QTest::newRow("false word") << text("False") << false;
        QTest::newRow("number text") << text("2") << true;
        QTest::newRow("fraction text") << text("0.5") << true;
        QTest::newRow("zero text") << text("0") << false;
        QTest::newRow("letters") << text("y") << false;
        QTest::newRow("array") << QJsonValue(QJsonArray{true}) << false;
    }

    void booleans()
    {
        QFETCH(const QJsonValue, json);
        QFETCH(const bool, expected);
        QCOMPARE(mapped("flag", json).flag, expected);
    }

    void texts_data()
    {
        QTest::addColumn<QJsonValue>("json");
        QTest::addColumn<QString>("expected");
        QTest::newRow("text") << text("0103") << QStringLiteral("0103");
        QTest::newRow("beyond Latin") << text("验证") << QStringLiteral("验证");
        QTest::newRow("word") << text("true") << QStringLiteral("true");
        QTest::newRow("integer") << QJsonValue(103) << QStringLiteral("103");
        QTest::newRow("largest") << QJsonValue(largest) << QStringLiteral("9223372036854775807");
        QTest::newRow("fraction") << QJsonValue(0.1) << QStringLiteral("0.1");
        QTest::newRow("boolean") << QJsonValue(true) << QStringLiteral("1");
        QTest::newRow("null") << QJsonValue() << QString();
        QTest::newRow("object") << QJsonValue(QJsonObject{}) << QString();
        QTest::newRow("array") << QJsonValue(QJsonArray{QStringLiteral("a")}) << QString();
    }

    void texts()
    {
        QFETCH(const QJsonValue, json);
        QFETCH(const QString, expected);
        const Record record = mapped("text", json);
        QCOMPARE(record.text(), expected);
        QCOMPARE(record.text().isNull(), expected.isNull());
    }

    void emptyTextIsNotAbsent()
    {
        const Record record = mapped("text", text(""));
        QVERIFY(record.text().isEmpty());
        QVERIFY(!record.text().isNull());
    }

    void listsKeepTheirPositions()
    {
        const QJsonArray elements{QJsonValue(), QStringLiteral("a"), 5, QJsonArray{}, QStringLiteral("")};
        const QStringList list = mapped("list", elements).list;
        QCOMPARE(list,
                 QStringList({QString(), QStringLiteral("a"), QStringLiteral("5"), QString(), QString()}));
        QVERIFY(list.at(0).isNull());
        QVERIFY(!list.at(4).isNull());
        QCOMPARE(mapped("list", QJsonArray{}).list, QStringList());
    }

    void noListIsLeftAlone()
    {
        QCOMPARE(mapped("list", text("a")).list, QStringList{QStringLiteral("kept")});
        QCOMPARE(mapped("list", QJsonValue()).list, QStringList{QStringLiteral("kept")});
    }

    void goesThroughSettersOfExactlyTheSameName()
    {
        const Record record = mapped({{QStringLiteral("text"), QStringLiteral("a")},
                                      {QStringLiteral("Text"), QStringLiteral("b")},
                                      {QStringLiteral("underscore"), 1},
                                      {QStringLiteral("fixed"), 8},
                                      {QStringLiteral("unknown"), QJsonObject{}},
                                      {QString(), 3}});
        QCOMPARE(record.text(), QStringLiteral("a"));
        QCOMPARE(record.textCalls(), 1);
        QCOMPARE(record.integer, -5);
        QCOMPARE(record.fixed(), 7);
        QCOMPARE(mapped({}).textCalls(), 0);
    }
};

QV_TEST(TestModelMapper)
#include "TestModelMapper.moc"
