#include "sandbox/SandboxCellJudge.h"
#include "sandbox/SandboxCurveMaker.h"
#include "sandbox/SandboxPainter.h"
#include "sandbox/SandboxStrokes.h"
#include "sandbox/SandboxTrace.h"
#include "sandbox/SandboxTraceJudge.h"
#include "support/QVTestCase.h"

using namespace SandboxStrokes;

namespace {

int score(const SandboxPath &curve, const SandboxPath &stroke, double top = 0.0)
{
    const auto trace = SandboxTrace::decode(recorded(stroke, top).getRenderSource_v());
    return trace ? SandboxTraceJudge(curve).score(trace->points) : -1;
}

} // namespace

class TestSandboxJudges : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void makesCurvesThatCanBeSeenAndDrawn()
    {
        const QRectF allowed(0.0, 0.0, 400.0, 200.0);
        const QRectF buttons(340.0, 0.0, 60.0, 30.0);
        const QRectF badge(0.0, 0.0, 60.0, 25.0);
        for (int seed = 0; seed < 40; ++seed) {
            const SandboxPath curve = SandboxCurveMaker(static_cast<quint64>(seed)).make();
            const SandboxPath other = SandboxCurveMaker(static_cast<quint64>(seed + 40)).make();
            QVERIFY(score(curve, other) < SandboxTraceJudge::passLine);
            const SandboxPath stroke = SandboxGeometry::resampled(curve, 40);
            // Strokes in the other direction, and in a tall view whose picture is far below its top.
            QVERIFY(score(curve, SandboxGeometry::reversed(stroke)) >= 93);
            QVERIFY(score(curve, stroke, 520) >= 93);
            const QImage image =
                QImage::fromData(SandboxPainter({curve, {}, static_cast<quint64>(seed)}, 2).jpeg());
            int bright = 0;
            for (const QPointF point : SandboxGeometry::resampled(curve, 200)) {
                QVERIFY(allowed.contains(point) && !buttons.contains(point) && !badge.contains(point));
                bright += qGray(image.pixel((point * 2.0).toPoint())) > 225 ? 1 : 0;
            }
            // The mark of the start and the hints for the direction cover the rest.
            QVERIFY2(bright > 132, qPrintable(QString::number(bright)));
        }
    }

    void readsCellsOfAKnownShape()
    {
        // Up from cell 4 to cell 0, right to cell 3, down to cell f.
        const SandboxCellJudge judge({{50, 86}, {50, 28}, {350, 28}, {350, 200}});
        QVERIFY(judge.accepts(q("403f")) && judge.accepts(q("f304")));
        for (const char *digits : {"430f", "403c", "4a3f", "403F", "403", "403ff", "zzzz", ""})
            QVERIFY2(!judge.accepts(q(digits)), digits);
    }
};

QV_TEST(TestSandboxJudges)
#include "TestSandboxJudges.moc"
