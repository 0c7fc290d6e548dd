#include "sandbox/SandboxCellJudge.h"
#include "sandbox/SandboxCurveMaker.h"
#include "sandbox/SandboxStrokes.h"
#include "sandbox/SandboxTrace.h"
#include "sandbox/SandboxTraceJudge.h"
#include "support/QVTestCase.h"

using namespace SandboxStrokes;

namespace {

constexpr int curves = 150;

SandboxPath curveOf(int seed)
{
    return SandboxCurveMaker(static_cast<quint64>(seed)).make();
}

SandboxPath outageCurveOf(int seed)
{
    return SandboxCurveMaker(static_cast<quint64>(seed)).make([](const SandboxPath &curve) {
        return SandboxCellJudge(curve).isClear();
    });
}

bool passes(const SandboxPath &curve, const SandboxPath &stroke, double top = 0.0)
{
    const auto trace = SandboxTrace::decode(encoded(stroke, 20, top));
    return trace && SandboxTraceJudge(curve).score(trace->points) >= SandboxTraceJudge::passLine;
}

} // namespace

namespace {

// Ten points: (12, 7) at 0 ms, (30, 7) at 45 ms, then all at (200, 115) at 60 ms.
const QString tenPoints = q("kkdkqp") + q("kpk").repeated(8) + q("kk6kk6") + q("kjg").repeated(8) +
                          q("kkkkrj") + q("ksk").repeated(8);

QString numbers(const QStringList &digits, const QString &rest)
{
    return digits.join(QString()) + rest.repeated(10 - digits.size());
}

} // namespace

class TestSandboxJudges : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void tellsHandsFromOtherStrokes_data()
    {
        const auto row = addColumns<int, int, int>({"kind", "fewest", "most"});
        row("following", 0, curves * 98 / 100, curves);
        row("straight from start to end", 1, 0, curves * 2 / 100);
        row("following another curve", 2, 0, curves * 2 / 100);
        row("scribbling", 3, 0, 0);
    }
    void tellsHandsFromOtherStrokes()
    {
        QFETCH(const int, kind);
        QFETCH(const int, fewest);
        QFETCH(const int, most);
        SandboxRandom random(7);
        int passed = 0;
        for (int i = 0; i < curves; ++i) {
            const SandboxPath curve = curveOf(i);
            const std::array<std::function<SandboxPath()>, 4> strokes{
                [&] { return followed(curve, random); },
                [&] { return straight(curve.first(), curve.last()); },
                [&] { return followed(curveOf(i + curves), random); },
                [&] {
                    return scribble(random);
                }};
            passed += passes(curve, strokes[static_cast<std::size_t>(kind)]()) ? 1 : 0;
        }
        QVERIFY2(passed >= fewest && passed <= most, qPrintable(QString::number(passed)));
    }

    void acceptsTheCurveItself()
    {
        for (int seed = 0; seed < 40; ++seed) {
            const SandboxPath curve = curveOf(seed);
            const SandboxPath stroke = SandboxGeometry::resampled(curve, 40);
            // Backwards too, and in a tall view whose picture begins far down.
            for (const QString &text :
                 {encoded(SandboxGeometry::reversed(stroke)), encoded(stroke, 20, 520)}) {
                const auto trace = SandboxTrace::decode(text);
                QVERIFY(trace && SandboxTraceJudge(curve).score(trace->points) >= 93);
            }
        }
    }

    void readsCellsOfAKnownShape()
    {
        // Up from cell 4 to cell 0, across to cell 3, down to cell f.
        const SandboxCellJudge judge({{50, 86}, {50, 28}, {350, 28}, {350, 200}});
        QVERIFY(judge.accepts(q("403f")) && judge.accepts(q("f304")));
        for (const char *digits : {"430f", "403c", "4a3f", "403F", "403", "403ff", "zzzz", ""})
            QVERIFY2(!judge.accepts(q(digits)), digits);
    }

    void tellsHandsFromGuessesInTheOutage()
    {
        SandboxRandom random(11);
        int following = 0;
        int other = 0;
        int guessed = 0;
        for (int i = 0; i < curves; ++i) {
            const SandboxPath curve = outageCurveOf(i);
            const SandboxCellJudge judge(curve);
            QVERIFY(judge.accepts(encodedCells(SandboxGeometry::resampled(curve, 40))));
            following += judge.accepts(encodedCells(followed(curve, random))) ? 1 : 0;
            other += judge.accepts(encodedCells(followed(outageCurveOf(i + curves), random))) ? 1 : 0;
            guessed += judge.accepts(encodedCells(scribble(random))) ? 1 : 0;
        }
        QVERIFY2(following >= curves * 95 / 100, qPrintable(QString::number(following)));
        QVERIFY2(other <= curves * 4 / 100, qPrintable(QString::number(other)));
        QVERIFY2(guessed <= curves * 2 / 100, qPrintable(QString::number(guessed)));
    }

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

QV_TEST(TestSandboxJudges)
#include "TestSandboxJudges.moc"
