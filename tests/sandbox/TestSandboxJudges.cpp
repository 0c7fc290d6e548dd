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

    void acceptsTheCurveItself_data()
    {
        const auto row = addColumns<double, bool>({"top", "backwards"});
        row("centred in a very tall view", 520.0, false);
        row("backwards", 0.0, true);
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
};

QV_TEST(TestSandboxJudges)
#include "TestSandboxJudges.moc"
