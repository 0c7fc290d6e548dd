#include "sandbox/SandboxStrokes.h"
#include "sandbox/SandboxTrace.h"
#include "support/QVTestCase.h"

namespace {

// Ten points: (12, 7) at 0 ms, (30, 7) at 45 ms, then all at (200, 115) at 60 ms.
const QString tenPoints = QStringLiteral("kkdkqp") + QStringLiteral("kpk").repeated(8) +
                          QStringLiteral("kk6kk6") + QStringLiteral("kjg").repeated(8) +
                          QStringLiteral("kkkkrj") + QStringLiteral("ksk").repeated(8);

QString numbers(const QStringList &digits, const QString &rest)
{
    return digits.join(QString()) + rest.repeated(10 - digits.size());
}

} // namespace

class TestSandboxTrace : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void takesThirdsApart()
    {
        const auto trace = SandboxTrace::decode(tenPoints);
        QVERIFY(trace);
        QCOMPARE(trace->points.size(), 10);
        QCOMPARE(trace->points[0], QPointF(12.0, 7.0 * 400.0 / 230.0));
        QCOMPARE(trace->points[1], QPointF(30.0, 7.0 * 400.0 / 230.0));
        QCOMPARE(trace->points[9], QPointF(200.0, 200.0));
        QCOMPARE(trace->duration, 60);
    }

    void refusesWhatIsNoTrace_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString();
        QTest::newRow("nine points") << QStringLiteral("k").repeated(81);
        QTest::newRow("eighty-one points") << QStringLiteral("k").repeated(729);
        QTest::newRow("a character too many") << tenPoints + u'k';
        QTest::newRow("capital digit") << QString(tenPoints).replace(4, 1, u'Q');
        QTest::newRow("foreign digit") << QString(tenPoints).replace(89, 1, u'a');
        QTest::newRow("other script") << QString(u'\u4e2d').repeated(90);
        QTest::newRow("cells") << QStringLiteral("0123");
    }
    void refusesWhatIsNoTrace()
    {
        QFETCH(const QString, text);
        QVERIFY(!SandboxTrace::decode(text));
    }

    void takesTenToEightyPoints()
    {
        QVERIFY(SandboxTrace::decode(QStringLiteral("k").repeated(90)));
        QVERIFY(SandboxTrace::decode(QStringLiteral("k").repeated(720)));
    }

    void restoresLostMultiples_data()
    {
        QTest::addColumn<QString>("columns");
        QTest::addColumn<QList<double>>("expected");
        // kzz is 399, kzk 380, kkk 0 or 400, kqk 20 or 420.
        QTest::newRow("over the right edge")
            << numbers({QStringLiteral("kzk"), QStringLiteral("kkk"), QStringLiteral("kqk")},
                       QStringLiteral("kzk"))
            << QList<double>{380, 400, 420, 380};
        QTest::newRow("begun on the right edge")
            << numbers({QStringLiteral("kkk")}, QStringLiteral("kzk")) << QList<double>{400, 380};
        QTest::newRow("begun on the left edge")
            << numbers({QStringLiteral("kkk")}, QStringLiteral("kqk")) << QList<double>{0, 20};
    }
    void restoresLostMultiples()
    {
        QFETCH(const QString, columns);
        QFETCH(const QList<double>, expected);
        const auto trace = SandboxTrace::decode(columns + QStringLiteral("k").repeated(60));
        QVERIFY(trace);
        for (qsizetype i = 0; i < expected.size(); ++i)
            QCOMPARE(trace->points[i].x(), expected[i]);
    }

    void comparesDrawtime_data()
    {
        QTest::addColumn<QString>("drawtime");
        QTest::addColumn<bool>("agrees");
        QTest::newRow("same") << QStringLiteral("460") << true;
        QTest::newRow("a lost multiple more") << QStringLiteral("860") << true;
        QTest::newRow("longest") << QStringLiteral("7660") << true;
        QTest::newRow("a multiple less") << QStringLiteral("60") << false;
        QTest::newRow("one off") << QStringLiteral("461") << false;
        QTest::newRow("beyond eight seconds") << QStringLiteral("8060") << false;
        QTest::newRow("negative") << QStringLiteral("-340") << false;
        QTest::newRow("no number") << QStringLiteral("460ms") << false;
        QTest::newRow("too big for a number") << QStringLiteral("9").repeated(40) << false;
        QTest::newRow("missing") << QString() << false;
    }
    void comparesDrawtime()
    {
        QFETCH(const QString, drawtime);
        QFETCH(const bool, agrees);
        // 380 ms, then 60 ms: which can only be 460.
        const auto trace = SandboxTrace::decode(
            QStringLiteral("k").repeated(60) +
            numbers({QStringLiteral("kkk"), QStringLiteral("kzk")}, QStringLiteral("ksk")));
        QVERIFY(trace);
        QCOMPARE(trace->duration, 460);
        QCOMPARE(trace->agreesWithDrawtime(drawtime), agrees);
    }

    void readsAWholeStroke()
    {
        const SandboxPath points = SandboxStrokes::straight({10, 20}, {390, 210});
        const auto trace = SandboxTrace::decode(SandboxStrokes::encoded(points, 130, 300.0));
        QVERIFY(trace);
        QCOMPARE(trace->duration, 29 * 130);
        // In a tall view rows pass 400 too; what is left is one offset for all.
        const double offset = trace->points.first().y() - points.first().y();
        for (qsizetype i = 0; i < points.size(); ++i) {
            QVERIFY(std::abs(trace->points[i].x() - points[i].x()) <= 1.0);
            QVERIFY(std::abs(trace->points[i].y() - points[i].y() - offset) <= 3.5);
        }
    }
};

QV_TEST(TestSandboxTrace)
#include "TestSandboxTrace.moc"
