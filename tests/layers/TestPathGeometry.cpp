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

    void trimsACircleByLength_data()
    {
        const auto row = addColumns<double, double>({"start", "end"});
        row("first quarter", 0.0, 0.25);
        row("over a seam", 0.2, 0.35);
        row("beyond both ends", -3.0, 0.6);
    }

    void trimsACircleByLength()
    {
        QFETCH(double, start);
        QFETCH(double, end);
        const QPainterPath circle = qv_arcPath({20, 20}, 13, -pi / 2, 3 * pi / 2);
        const QPainterPath trimmed = qv_trimmedPath(circle, start, end);
        QVERIFY(close(trimmed.elementAt(0), onCircle(std::max(start, 0.0))));
        QVERIFY(close(trimmed.currentPosition(), onCircle(end)));
        const double expected = (end - std::max(start, 0.0)) * 2 * pi * 13;
        // QPainterPath's own measure is up to 0.2 % long.
        QVERIFY(std::abs(trimmed.length() - expected) < 0.003 * expected);
        for (const double part : {0.1, 0.5, 0.9}) {
            const QPointF offset = trimmed.pointAtPercent(part) - QPointF(20, 20);
            QVERIFY(std::abs(std::hypot(offset.x(), offset.y()) - 13) < 0.02);
        }
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

    void blendsCirclesOfDifferentRadii()
    {
        const QPainterPath small = qv_arcPath({10, 10}, 0.1, 0, 2 * pi);
        const QPainterPath large = qv_arcPath({10, 10}, 300.1, 0, 2 * pi);
        const QRectF half = qv_blendedPath(small, large, 0.5).boundingRect();
        QVERIFY(close(half.topLeft(), QPointF(10 - 150.1, 10 - 150.1)));
        QVERIFY(close(half.bottomRight(), QPointF(10 + 150.1, 10 + 150.1)));
    }
};

QV_TEST(TestPathGeometry)
#include "TestPathGeometry.moc"
