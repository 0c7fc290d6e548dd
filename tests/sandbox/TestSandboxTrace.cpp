#include "sandbox/SandboxStrokes.h"
#include "sandbox/SandboxTrace.h"
#include "support/QVTestCase.h"

namespace {

// Ten points: (12, 7) at 0 ms, (30, 7) at 45 ms, then all at (200, 115) at 60 ms.
const QString tenPoints = q("kkdkqp") + q("kpk").repeated(8) + q("kk6kk6") + q("kjg").repeated(8) +
                          q("kkkkrj") + q("ksk").repeated(8);

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

    void refusesWhatIsNoTrace()
    {
        for (const int length : {0, 81, 91, 729})
            QVERIFY(!SandboxTrace::decode(q("k").repeated(length)));
        QVERIFY(!SandboxTrace::decode(QString(tenPoints).replace(4, 1, u'Q')));
        QVERIFY(SandboxTrace::decode(q("k").repeated(720)));
    }

    void restoresLostMultiples()
    {
        // kzz is 399, kzk 380, kkk 0 or 400, kqk 20 or 420.
        const QVCases<QString, QList<double>> cases{
            {numbers({q("kzk"), q("kkk"), q("kqk")}, q("kzk")), {380, 400, 420, 380}},
            {numbers({q("kkk")}, q("kzk")), {400, 380}},
            {numbers({q("kkk")}, q("kqk")), {0, 20}}};
        for (const auto &[columns, expected] : cases) {
            const auto trace = SandboxTrace::decode(columns + q("k").repeated(60));
            for (qsizetype i = 0; i < expected.size(); ++i)
                QCOMPARE(trace->points[i].x(), expected[i]);
        }
    }

    void comparesDrawtime()
    {
        // 380 ms, then 60 ms: which can only be 460.
        const auto trace =
            SandboxTrace::decode(q("k").repeated(60) + numbers({q("kkk"), q("kzk")}, q("ksk")));
        QCOMPARE(trace->duration, 460);
        for (const char *drawtime : {"460", "860", "7660"})
            QVERIFY2(trace->agreesWithDrawtime(q(drawtime)), drawtime);
        for (const char *drawtime : {"60", "461", "8060", "-340", "460ms", "99999999999999999999999", ""})
            QVERIFY2(!trace->agreesWithDrawtime(q(drawtime)), drawtime);
    }
};

QV_TEST(TestSandboxTrace)
#include "TestSandboxTrace.moc"
