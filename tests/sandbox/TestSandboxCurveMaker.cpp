#include "sandbox/SandboxCurveMaker.h"
#include "sandbox/SandboxStrokes.h"
#include "support/QVTestCase.h"

#include <QRectF>

class TestSandboxCurveMaker : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void sameSeedGivesTheSameCurve()
    {
        QCOMPARE(SandboxCurveMaker(42).make(), SandboxCurveMaker(42).make());
        QVERIFY(SandboxCurveMaker(42).make() != SandboxCurveMaker(43).make());
    }

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
        QTest::addColumn<SandboxPath>("corners");
        QTest::newRow("straight") << SandboxPath{{40, 100}, {150, 101}, {260, 100}, {370, 101}};
        QTest::newRow("crossing itself") << SandboxPath{{60, 60}, {340, 160}, {340, 60}, {60, 160}};
        QTest::newRow("too short") << SandboxPath{{100, 60}, {180, 60}, {180, 140}};
        QTest::newRow("under the prompt") << SandboxPath{{60, 100}, {160, 212}, {260, 212}, {340, 60}};
        QTest::newRow("folded back") << SandboxPath{{60, 80}, {340, 90}, {60, 100}};
        QTest::newRow("nothing") << SandboxPath{};
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

    void spacesPointsEvenly()
    {
        const SandboxPath curve = SandboxCurveMaker(5).make();
        const SandboxPath points = SandboxGeometry::resampled(curve, 40);
        QCOMPARE(points.first(), curve.first());
        QCOMPARE(points.last(), curve.last());
        const double spacing = SandboxGeometry::length(curve) / 39.0;
        for (qsizetype i = 1; i < points.size(); ++i) {
            const double step = SandboxGeometry::distance(points[i - 1], points[i]);
            QVERIFY(step <= spacing + 1e-6 && step > spacing * 0.9);
        }
    }

    void resamplesWhatHasNoLength()
    {
        QCOMPARE(SandboxGeometry::resampled({}, 3), SandboxPath(3));
        QCOMPARE(SandboxGeometry::resampled({{4, 5}, {4, 5}}, 2), SandboxPath(2, QPointF(4, 5)));
    }
};

QV_TEST(TestSandboxCurveMaker)
#include "TestSandboxCurveMaker.moc"
