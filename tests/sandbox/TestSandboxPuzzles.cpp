#include "sandbox/SandboxCurveMaker.h"
#include "sandbox/SandboxPainter.h"
#include "sandbox/SandboxStrokes.h"
#include "support/QVTestCase.h"

#include <QRectF>

namespace {

SandboxPuzzle curvePuzzle(quint64 seed)
{
    return {SandboxCurveMaker(seed).make(), {}, seed};
}

} // namespace

class TestSandboxPuzzles : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:

    void staysClearOfControls()
    {
        const QRectF allowed(0.0, 0.0, 400.0, 200.0);
        const QRectF buttons(340.0, 0.0, 60.0, 30.0);
        const QRectF badge(0.0, 0.0, 60.0, 25.0);
        for (quint64 seed = 0; seed < 200; ++seed) {
            for (const QPointF point : SandboxGeometry::resampled(SandboxCurveMaker(seed).make(), 200)) {
                QVERIFY(allowed.contains(point));
                QVERIFY(!buttons.contains(point) && !badge.contains(point));
            }
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

    void curveStandsOutOnEveryGround()
    {
        for (quint64 seed = 0; seed < 40; ++seed) {
            const SandboxPuzzle puzzle = curvePuzzle(seed);
            const QImage image = QImage::fromData(SandboxPainter(puzzle, 2).jpeg());
            int bright = 0;
            // Without the start's mark.
            const SandboxPath points = SandboxGeometry::resampled(puzzle.curve, 100).mid(5);
            for (const QPointF point : points)
                bright += qGray(image.pixel((point * 2.0).toPoint())) > 225 ? 1 : 0;
            // The hints for the direction take the rest.
            QVERIFY2(bright > points.size() * 70 / 100, qPrintable(QString::number(bright)));
        }
    }
};

QV_TEST(TestSandboxPuzzles)
#include "TestSandboxPuzzles.moc"
