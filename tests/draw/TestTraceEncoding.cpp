#include "draw/QVRenderDrawPointModel.h"
#include "draw/QVTraceEncoding.h"
#include "support/QVTestCase.h"

#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>

class TestTraceEncoding : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void writesNumbers_data()
    {
        QTest::addColumn<quint64>("number");
        QTest::addColumn<QString>("digits");
        QTest::newRow("0") << quint64(0) << "kkk";
        QTest::newRow("1") << quint64(1) << "kkq";
        QTest::newRow("12") << quint64(12) << "kkd";
        QTest::newRow("19") << quint64(19) << "kkz";
        QTest::newRow("20") << quint64(20) << "kqk";
        QTest::newRow("45") << quint64(45) << "krj";
        QTest::newRow("399") << quint64(399) << "kzz";
        QTest::newRow("the digit of 400 is left out") << quint64(400) << "kkk";
        QTest::newRow("401") << quint64(401) << "kkq";
        QTest::newRow("7999") << quint64(7999) << "kzz";
        QTest::newRow("8000") << quint64(8000) << "qkk";
        QTest::newRow("largest") << quint64(159999) << "zzz";
    }

    void writesNumbers()
    {
        QFETCH(quint64, number);
        QTEST(convertTo20(number), "digits");
    }

    void refusesWhatHasNoDigits()
    {
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, (void)convertTo20(160000));
        QVRenderDrawPointModel point;
        point.setPointX(-1);
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, (void)point.convertPointXTo20());
    }

    void buildsPoints_data()
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        QTest::addColumn<double>("value");
        QTest::addColumn<qint64>("coordinate");
        QTest::addColumn<quint64>("time");
        QTest::newRow("fraction") << 12.9 << qint64(12) << quint64(12);
        QTest::newRow("just below zero") << -0.5 << qint64(0) << quint64(0);
        QTest::newRow("negative") << -7.9 << qint64(-7) << quint64(0);
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << qint64(0) << quint64(0);
        QTest::newRow("endless") << infinity << std::numeric_limits<qint64>::max()
                                 << quint64(std::numeric_limits<qint64>::max());
        QTest::newRow("endless below") << -infinity << std::numeric_limits<qint64>::min() << quint64(0);
    }

    void buildsPoints()
    {
        QFETCH(double, value);
        const auto point = QVRenderDrawPointModel::modelWithPointX(value, value, value);
        QTEST(point.pointX(), "coordinate");
        QTEST(point.pointY(), "coordinate");
        QTEST(point.pointTimeInterval(), "time");
    }

    void encodesEachFieldOfAPoint()
    {
        const auto point = QVRenderDrawPointModel::modelWithPointX(30, 7, 45);
        QCOMPARE(point.convertPointXTo20(), QStringLiteral("kqp"));
        QCOMPARE(point.convertPointYTo20(), QStringLiteral("kk6"));
        QCOMPARE(point.convertPointTimeIntervalTo20(), QStringLiteral("krj"));
    }

    void namesCells_data()
    {
        QTest::addColumn<qint64>("column");
        QTest::addColumn<qint64>("row");
        QTest::addColumn<QString>("digit");
        const QString digits = QStringLiteral("0123456789abcdef");
        for (qint64 cell = 0; cell < digits.size(); ++cell) {
            QTest::addRow("cell %d", static_cast<int>(cell))
                << cell % 4 << cell / 4 << digits.mid(static_cast<qsizetype>(cell), 1);
        }
        QTest::newRow("left of the grid") << qint64(-1) << qint64(0) << "3";
        QTest::newRow("above the grid") << qint64(1) << qint64(-9) << "d";
        QTest::newRow("beyond the grid") << qint64(5) << qint64(7) << "f";
    }

    void namesCells()
    {
        QFETCH(qint64, column);
        QFETCH(qint64, row);
        QTEST(convertTo16X(column, row), "digit");
    }

    void findsCells_data()
    {
        constexpr double nan = std::numeric_limits<double>::quiet_NaN();
        QTest::addColumn<QSizeF>("size");
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<QString>("digit");
        const QSizeF size(400, 200);
        QTest::newRow("first") << size << QPointF(0, 0) << "0";
        QTest::newRow("last") << size << QPointF(399, 199) << "f";
        QTest::newRow("on two lines") << size << QPointF(100, 50) << "5";
        QTest::newRow("far edges") << size << QPointF(400, 200) << "f";
        QTest::newRow("just left") << size << QPointF(-0.1, 0) << "3";
        QTest::newRow("endless") << size << QPointF(1e300, -1e300) << "f";
        QTest::newRow("no size") << QSizeF(0, 0) << QPointF(5, 5) << "f";
        QTest::newRow("nowhere in no size") << QSizeF(0, 0) << QPointF(nan, nan) << "0";
    }

    void findsCells()
    {
        QFETCH(QSizeF, size);
        QFETCH(QPointF, point);
        QTEST(converTo16WithSize(size, point.x(), point.y()), "digit");
    }

    void measuresTrianglesInAnyOrder()
    {
        std::array corners{QPointF(0, 0), QPointF(0, 3), QPointF(4, 0)};
        std::array order{0, 1, 2};
        do {
            QCOMPARE(areaFromPointA(corners[order[0]], corners[order[1]], corners[order[2]]), 6.0);
        } while (std::ranges::next_permutation(order).found);
        QCOMPARE(areaFromPointA({1, 1}, {2, 2}, {5, 5}), 0.0);
    }
};

QV_TEST(TestTraceEncoding)
#include "TestTraceEncoding.moc"
