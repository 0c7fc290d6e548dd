#include "layers/QVPathGeometry.h"
#include "support/QVTestCase.h"

#include <cmath>
#include <numbers>

using std::numbers::pi;

namespace {

bool close(QPointF one, QPointF other)
{
    return std::hypot(one.x() - other.x(), one.y() - other.y()) < 0.02;
}

QPointF onCircle(double turn)
{
    const double angle = -pi / 2 + turn * 2 * pi;
    return {20 + 13 * std::cos(angle), 20 + 13 * std::sin(angle)};
}

} // namespace

class TestPathGeometry : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:

    void trimsACircleByLength()
    {
        const QPainterPath circle = qv_arcPath({20, 20}, 13, -pi / 2, 3 * pi / 2);
        for (const auto &[start, end] : QVCases<double, double>{{0, 0.25}, {0.2, 0.35}, {0, 0.6}}) {
            const QPainterPath trimmed = qv_trimmedPath(circle, start > 0 ? start : -3, end);
            QVERIFY(close(trimmed.elementAt(0), onCircle(start)));
            QVERIFY(close(trimmed.currentPosition(), onCircle(end)));
            const double expected = (end - start) * 2 * pi * 13;
            // QPainterPath's own measure is up to 0.2 % long.
            QVERIFY(std::abs(trimmed.length() - expected) < 0.003 * expected);
        }
        QVERIFY(qv_trimmedPath(circle, 0.7, 0.3).isEmpty());
    }

    void trimsAcrossSubpathsInOrder()
    {
        QPainterPath plus;
        plus.moveTo(0, -8);
        plus.lineTo(0, 8);
        plus.moveTo(8, 0);
        plus.lineTo(-8, 0);
        const QPainterPath trimmed = qv_trimmedPath(plus, 0.25, 0.75);
        QCOMPARE(trimmed.elementCount(), 4);
        QCOMPARE(QPointF(trimmed.elementAt(0)), QPointF(0, 0));
        QCOMPARE(QPointF(trimmed.elementAt(1)), QPointF(0, 8));
        QVERIFY(trimmed.elementAt(2).isMoveTo());
        QCOMPARE(QPointF(trimmed.elementAt(2)), QPointF(8, 0));
        QCOMPARE(QPointF(trimmed.elementAt(3)), QPointF(0, 0));
    }
};

QV_TEST(TestPathGeometry)
#include "TestPathGeometry.moc"
