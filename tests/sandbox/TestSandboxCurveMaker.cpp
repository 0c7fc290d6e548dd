#include "sandbox/SandboxCurveMaker.h"
#include "sandbox/SandboxStrokes.h"
#include "support/QVTestCase.h"

#include <QRectF>

class TestSandboxCurveMaker : public QVTestCase
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

    void turnsDownWhatIsHardToDraw_data()
    {
        const auto row = addColumns<SandboxPath>({"corners"});
        row("straight", SandboxPath{{40, 100}, {150, 101}, {260, 100}, {370, 101}});
        row("crossing itself", SandboxPath{{60, 60}, {340, 160}, {340, 60}, {60, 160}});
        row("too short", SandboxPath{{100, 60}, {180, 60}, {180, 140}});
        row("under the prompt", SandboxPath{{60, 100}, {160, 212}, {260, 212}, {340, 60}});
        row("folded back", SandboxPath{{60, 80}, {340, 90}, {60, 100}});
        row("nothing", SandboxPath{});
    }
    void turnsDownWhatIsHardToDraw()
    {
        QFETCH(const SandboxPath, corners);
        QVERIFY(!SandboxCurveMaker::isDrawable(SandboxGeometry::splineThrough(corners, 16)));
    }

    void givesADrawableCurveHoweverPicky()
    {
        // Nothing pleases: the maker still ends, with a curve that keeps the rules.
        const SandboxPath curve = SandboxCurveMaker(1).make([](const SandboxPath &) { return false; });
        QVERIFY(SandboxCurveMaker::isDrawable(curve));
    }
};

QV_TEST(TestSandboxCurveMaker)
#include "TestSandboxCurveMaker.moc"
