#include "sandbox/SandboxCellJudge.h"
#include "sandbox/SandboxCurveMaker.h"
#include "sandbox/SandboxStrokes.h"
#include "sandbox/SandboxTrace.h"
#include "sandbox/SandboxTraceJudge.h"
#include "support/QVTestCase.h"

using namespace SandboxStrokes;

namespace {

constexpr int curves = 400;

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

class TestSandboxJudges : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void tellsHandsFromOtherStrokes_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("fewest");
        QTest::addColumn<int>("most");
        QTest::newRow("following") << 0 << curves * 98 / 100 << curves;
        QTest::newRow("straight from start to end") << 1 << 0 << curves * 2 / 100;
        QTest::newRow("following another curve") << 2 << 0 << curves * 2 / 100;
        QTest::newRow("scribbling") << 3 << 0 << 0;
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

    void acceptsTheCurveItself_data()
    {
        QTest::addColumn<double>("top");
        QTest::addColumn<bool>("backwards");
        QTest::newRow("in a view as high as the picture") << 0.0 << false;
        QTest::newRow("centred in a tall view") << 145.0 << false;
        QTest::newRow("centred in a very tall view") << 520.0 << false;
        QTest::newRow("backwards") << 0.0 << true;
    }
    void acceptsTheCurveItself()
    {
        QFETCH(const double, top);
        QFETCH(const bool, backwards);
        for (int seed = 0; seed < 40; ++seed) {
            const SandboxPath curve = curveOf(seed);
            const SandboxPath stroke = SandboxGeometry::resampled(curve, 40);
            const auto trace = SandboxTrace::decode(
                encoded(backwards ? SandboxGeometry::reversed(stroke) : stroke, 20, top));
            QVERIFY(trace);
            QVERIFY(SandboxTraceJudge(curve).score(trace->points) >= 93);
        }
    }

    void refusesPartsAndDisplacement()
    {
        const SandboxPath curve = curveOf(3);
        const SandboxPath dense = SandboxGeometry::resampled(curve, 60);
        QVERIFY(!passes(curve, dense.first(30)));
        SandboxPath aside = dense;
        for (QPointF &point : aside)
            point.rx() = std::max(point.x() - 40.0, 0.0);
        QVERIFY(!passes(curve, aside));
        QVERIFY(!passes(curve, SandboxPath(20, QPointF(200.0, 100.0))));
    }

    void readsCellsOfAKnownShape_data()
    {
        QTest::addColumn<QString>("digits");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("forwards") << QStringLiteral("403f") << true;
        QTest::newRow("backwards") << QStringLiteral("f304") << true;
        QTest::newRow("corners swapped") << QStringLiteral("430f") << false;
        QTest::newRow("an end elsewhere") << QStringLiteral("403c") << false;
        QTest::newRow("a corner elsewhere") << QStringLiteral("4a3f") << false;
        QTest::newRow("capital") << QStringLiteral("403F") << false;
        QTest::newRow("short") << QStringLiteral("403") << false;
        QTest::newRow("long") << QStringLiteral("403ff") << false;
        QTest::newRow("no digits") << QStringLiteral("zzzz") << false;
        QTest::newRow("empty") << QString() << false;
    }
    void readsCellsOfAKnownShape()
    {
        QFETCH(const QString, digits);
        QFETCH(const bool, accepted);
        // Up from cell 4 to cell 0, across to cell 3, down to cell f.
        const SandboxPath shape{{50, 86}, {50, 28}, {350, 28}, {350, 200}};
        QCOMPARE(SandboxCellJudge(shape).accepts(digits), accepted);
    }

    void takesNeighboursNearAGridLine()
    {
        const auto judgeFor = [](double x) {
            return SandboxCellJudge({{x, 86}, {x, 28}, {350, 28}, {350, 200}});
        };
        QVERIFY(judgeFor(92.0).accepts(QStringLiteral("503f")));
        QVERIFY(!judgeFor(60.0).accepts(QStringLiteral("503f")));
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
};

QV_TEST(TestSandboxJudges)
#include "TestSandboxJudges.moc"
