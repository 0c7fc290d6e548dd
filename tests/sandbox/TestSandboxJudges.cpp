#include "sandbox/SandboxCellJudge.h"
#include "sandbox/SandboxCurveMaker.h"
#include "sandbox/SandboxPainter.h"
#include "sandbox/SandboxStrokes.h"
#include "sandbox/SandboxTrace.h"
#include "sandbox/SandboxTraceJudge.h"
#include "support/QVTestCase.h"

using namespace SandboxStrokes;

namespace {

constexpr int curves = 150;

SandboxPath curveOf(int seed, bool isOutage = false)
{
    return SandboxCurveMaker(static_cast<quint64>(seed)).make([isOutage](const SandboxPath &curve) {
        return !isOutage || SandboxCellJudge(curve).isClear();
    });
}

int score(const SandboxPath &curve, const SandboxPath &stroke, double top = 0.0)
{
    const auto trace = SandboxTrace::decode(recorded(stroke, top).getRenderSource_v());
    return trace ? SandboxTraceJudge(curve).score(trace->points) : -1;
}

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
        // The least and the greatest number of a hundred strokes that may pass.
        const auto row = addColumns<bool, int, int, int>({"isOutage", "kind", "fewest", "most"});
        row("following", false, 0, 98, 100);
        row("straight from start to end", false, 1, 0, 2);
        row("following another curve", false, 2, 0, 2);
        row("scribbling", false, 3, 0, 0);
        row("following, outage", true, 0, 95, 100);
        row("following another curve, outage", true, 2, 0, 4);
        row("scribbling, outage", true, 3, 0, 2);
    }

    void tellsHandsFromOtherStrokes()
    {
        QFETCH(const bool, isOutage);
        QFETCH(const int, kind);
        QFETCH(const int, fewest);
        QFETCH(const int, most);
        SandboxRandom random(7);
        int passed = 0;
        for (int i = 0; i < curves; ++i) {
            const SandboxPath curve = curveOf(i, isOutage);
            const SandboxPath stroke = kind == 0   ? followed(curve, random)
                                       : kind == 1 ? straight(curve.first(), curve.last())
                                       : kind == 2 ? followed(curveOf(i + curves, isOutage), random)
                                                   : scribble(random);
            const bool passes = isOutage ? SandboxCellJudge(curve).accepts(cells(recorded(stroke)))
                                         : score(curve, stroke) >= SandboxTraceJudge::passLine;
            passed += passes ? 1 : 0;
        }
        QVERIFY2(passed * 100 >= fewest * curves && passed * 100 <= most * curves,
                 qPrintable(QString::number(passed)));
    }

    void makesCurvesThatCanBeSeenAndDrawn()
    {
        const QRectF allowed(0.0, 0.0, 400.0, 200.0);
        const QRectF buttons(340.0, 0.0, 60.0, 30.0);
        const QRectF badge(0.0, 0.0, 60.0, 25.0);
        for (int seed = 0; seed < 40; ++seed) {
            const SandboxPath curve = curveOf(seed);
            const SandboxPath stroke = SandboxGeometry::resampled(curve, 40);
            // Strokes in the other direction, and in a tall view whose picture is far below its top.
            QVERIFY(score(curve, SandboxGeometry::reversed(stroke)) >= 93);
            QVERIFY(score(curve, stroke, 520) >= 93);
            for (const QPointF point : SandboxGeometry::resampled(curve, 200))
                QVERIFY(allowed.contains(point) && !buttons.contains(point) && !badge.contains(point));
            const QImage image =
                QImage::fromData(SandboxPainter({curve, {}, static_cast<quint64>(seed)}, 2).jpeg());
            const SandboxPath points = SandboxGeometry::resampled(curve, 100);
            const auto bright = std::ranges::count_if(
                points, [&](QPointF point) { return qGray(image.pixel((point * 2.0).toPoint())) > 225; });
            // The mark of the start and the hints for the direction cover the rest.
            QVERIFY2(bright > 66, qPrintable(QString::number(bright)));
        }
    }

    void turnsDownWhatIsHardToDraw()
    {
        const std::vector<SandboxPath> hard{
            {{40, 100}, {150, 101}, {260, 100}, {370, 101}}, // straight
            {{60, 60}, {340, 160}, {340, 60}, {60, 160}},    // crossing itself
            {{100, 60}, {180, 60}, {180, 140}},              // too short
            {{60, 100}, {160, 212}, {260, 212}, {340, 60}},  // under the prompt
            {{60, 80}, {340, 90}, {60, 100}},                // folded back
            {}};
        for (const SandboxPath &corners : hard)
            QVERIFY(!SandboxCurveMaker::isDrawable(SandboxGeometry::splineThrough(corners, 16)));
    }

    void readsCellsOfAKnownShape()
    {
        // Up from cell 4 to cell 0, right to cell 3, down to cell f.
        const SandboxCellJudge judge({{50, 86}, {50, 28}, {350, 28}, {350, 200}});
        QVERIFY(judge.accepts(q("403f")) && judge.accepts(q("f304")));
        for (const char *digits : {"430f", "403c", "4a3f", "403F", "403", "403ff", "zzzz", ""})
            QVERIFY2(!judge.accepts(q(digits)), digits);
    }

    void takesTracesApart()
    {
        for (const int length : {0, 81, 91, 729})
            QVERIFY(!SandboxTrace::decode(q("k").repeated(length)));
        QVERIFY(SandboxTrace::decode(q("k").repeated(720)));
        QVERIFY(!SandboxTrace::decode(q("kkQ") + q("k").repeated(87)));
        // The digits of a number have the weights 8000, 20 and 1; k is 0, q is 1 and z is 19. Multiples of
        // 400 are not sent: kzk is 380, kkk is 0 or 400, kqk is 20 or 420.
        const QVCases<QString, QList<double>> columns{
            {numbers({q("kzk"), q("kkk"), q("kqk")}, q("kzk")), {380, 400, 420, 380}},
            {numbers({q("kkk")}, q("kzk")), {400, 380}},
            {numbers({q("kkk")}, q("kqk")), {0, 20}}};
        for (const auto &[digits, expected] : columns) {
            const auto trace = SandboxTrace::decode(digits + q("kjg").repeated(10) + q("k").repeated(30));
            for (qsizetype i = 0; i < expected.size(); ++i)
                QCOMPARE(trace->points[i], QPointF(expected[i], 200.0));
        }
        // 380 ms, then 60 ms, which can only be 460 ms.
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
