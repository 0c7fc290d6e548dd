#include "layers/QVTimingCurve.h"
#include "support/QVTestCase.h"

#include <cmath>

class TestTimingCurve : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void followsItsControlPoints_data()
    {
        // Values of the curves' closed form, found by solving x(t) = progress to 1e-9.
        QTest::addColumn<int>("curve");
        QTest::addColumn<double>("progress");
        QTest::addColumn<double>("value");
        QTest::newRow("linear") << 0 << 0.3 << 0.3;
        QTest::newRow("in, quarter") << 1 << 0.25 << 0.0935;
        QTest::newRow("in, half") << 1 << 0.5 << 0.3154;
        QTest::newRow("out, half") << 2 << 0.5 << 0.6846;
        QTest::newRow("out, three quarters") << 2 << 0.75 << 0.9065;
        QTest::newRow("in and out, quarter") << 3 << 0.25 << 0.1292;
        QTest::newRow("in and out, half") << 3 << 0.5 << 0.5;
        QTest::newRow("before the start") << 3 << -1.0 << 0.0;
        QTest::newRow("after the end") << 1 << 2.0 << 1.0;
    }

    void followsItsControlPoints()
    {
        QFETCH(int, curve);
        QFETCH(double, progress);
        QFETCH(double, value);
        const QVTimingCurve curves[] = {QVTimingCurve::linear(), QVTimingCurve::easeIn(),
                                        QVTimingCurve::easeOut(), QVTimingCurve::easeInEaseOut()};
        const double actual = curves[curve].valueAt(progress);
        QVERIFY2(std::abs(actual - value) < 1e-4, qPrintable(QString::number(actual)));
    }
};

QV_TEST(TestTimingCurve)
#include "TestTimingCurve.moc"
