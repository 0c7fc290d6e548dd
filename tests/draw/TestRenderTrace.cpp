#include "draw/QVRenderTrace.h"
#include "draw/QVTraceCorners.h"
#include "support/QVTestCase.h"

#include <limits>

namespace {

// Times are given to a trace as seconds since 1970; a round start keeps the arithmetic exact.
constexpr double startTime = 1704067200.0;

QVRenderTrace traceIn(QSizeF size)
{
    QVRenderTrace trace;
    trace.setFrameSize(size);
    trace.setPanGestureStartTime(startTime);
    return trace;
}

void addLine(QVRenderTrace &trace, int count, double step)
{
    for (int i = 0; i < count; ++i)
        trace.handlePanGesturePoint({i * step, 10}, startTime + i * 0.0625);
}

} // namespace

class TestRenderTrace : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void dropsWhatIsTooCloseToTheLastKeptPoint_data()
    {
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<bool>("kept");
        QTest::newRow("5 to the right") << QPointF(105, 100) << true;
        QTest::newRow("5 to the left") << QPointF(95, 100) << true;
        QTest::newRow("5 down") << QPointF(100, 105) << true;
        QTest::newRow("5 up") << QPointF(100, 95) << true;
        QTest::newRow("4.9 on both axes") << QPointF(104.9, 104.9) << false;
        QTest::newRow("same place") << QPointF(100, 100) << false;
    }

    void dropsWhatIsTooCloseToTheLastKeptPoint()
    {
        QFETCH(QPointF, point);
        QFETCH(bool, kept);
        QVRenderTrace trace = traceIn({400, 230});
        trace.handlePanGesturePoint({100, 100}, startTime);
        trace.handlePanGesturePoint(point, startTime);
        QCOMPARE(trace.originalRenderPoints().size(), std::size_t(2));
        QCOMPARE(trace.screeningRenderPoints().size(), std::size_t(kept ? 2 : 1));
        QCOMPARE(trace.renderSource().size(), trace.screeningRenderPoints().size());
    }

    void comparesWithTheLastKeptPointNotTheLastReported()
    {
        QVRenderTrace trace = traceIn({400, 230});
        for (const double x : {0.0, 3.0, 6.0, 9.0, 12.0})
            trace.handlePanGesturePoint({x, 0}, startTime);
        QCOMPARE(trace.screeningRenderPoints(), std::vector<QPointF>({{0, 0}, {6, 0}, {12, 0}}));
    }

    void scales_data()
    {
        QTest::addColumn<QSizeF>("size");
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<QPoint>("expected");
        constexpr double nan = std::numeric_limits<double>::quiet_NaN();
        constexpr double endless = std::numeric_limits<double>::infinity();
        QTest::newRow("by unequal factors") << QSizeF(320, 184) << QPointF(160, 92) << QPoint(200, 66);
        QTest::newRow("by the width alone") << QSizeF(414, 736) << QPointF(207, 414) << QPoint(200, 230);
        QTest::newRow("left of and above the view") << QSizeF(320, 184) << QPointF(-4, -9) << QPoint(0, 0);
        QTest::newRow("far outside the view")
            << QSizeF(320, 184) << QPointF(1e9, 1e9) << QPoint(159999, 159999);
        QTest::newRow("endless") << QSizeF(320, 184) << QPointF(endless, -endless) << QPoint(159999, 0);
        QTest::newRow("not a number") << QSizeF(320, 184) << QPointF(nan, 92) << QPoint(0, 66);
        QTest::newRow("a view of no size") << QSizeF(0, 0) << QPointF(0, 0) << QPoint(0, 0);
        QTest::newRow("a view of no width") << QSizeF(0, 100) << QPointF(3, 0) << QPoint(159999, 0);
    }

    void scales()
    {
        QFETCH(QSizeF, size);
        QFETCH(QPointF, point);
        QVRenderTrace trace = traceIn(size);
        trace.handlePanGesturePoint(point, startTime);
        const QVRenderDrawPointModel kept = trace.renderSource().front();
        QTEST(QPoint(static_cast<int>(kept.pointX()), static_cast<int>(kept.pointY())), "expected");
        QCOMPARE(trace.getRenderSource_v().size(), 9);
    }

    void acceptsFrom10To80Points_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("none") << 0 << false;
        QTest::newRow("9") << 9 << false;
        QTest::newRow("10") << 10 << true;
        QTest::newRow("80") << 80 << true;
        QTest::newRow("81") << 81 << false;
    }

    void acceptsFrom10To80Points()
    {
        QFETCH(int, count);
        QVRenderTrace trace = traceIn({400, 230});
        addLine(trace, count, 5.0);
        QTEST(trace.isAcceptable(), "accepted");
    }

    void keepsTheFirst8SecondsOnly()
    {
        QVRenderTrace trace = traceIn({400, 230});
        trace.handlePanGesturePoint({0, 0}, startTime + 9);
        QCOMPARE(trace.renderSource().size(), std::size_t(1));
        trace.handlePanGesturePoint({10, 0}, startTime + 7.9990234375);
        trace.handlePanGesturePoint({20, 0}, startTime + 8);
        trace.handlePanGesturePoint({30, 0}, startTime + 4);
        QCOMPARE(trace.screeningRenderPoints(), std::vector<QPointF>({{0, 0}, {10, 0}, {30, 0}}));
        QCOMPARE(trace.renderSource()[1].pointTimeInterval(), quint64(7999));
    }

    void survivesAClockThatGoesBack()
    {
        QVRenderTrace trace = traceIn({400, 230});
        trace.handlePanGesturePoint({0, 0}, startTime);
        trace.handlePanGesturePoint({10, 0}, startTime - 3600);
        trace.handlePanGesturePoint({20, 0}, std::numeric_limits<double>::quiet_NaN());
        QCOMPARE(trace.renderSource().size(), std::size_t(2));
        QCOMPARE(trace.getRender_drawtime(), QStringLiteral("0"));
    }

    void writesThePayload()
    {
        QVRenderTrace trace = traceIn({400, 400});
        trace.handlePanGesturePoint({12.9, 12.9}, startTime);
        trace.handlePanGesturePoint({30.5, 12.9}, startTime + 0.0457);
        QCOMPARE(trace.getRenderSource_v(), QStringLiteral("kkdkqpkk6kk6kkkkrj"));
        QCOMPARE(trace.getRender_drawtime(), QStringLiteral("45"));
    }

    void drawtimeIsTruncatedAndAbsentWithoutPoints()
    {
        QVRenderTrace trace = traceIn({400, 230});
        QVERIFY(trace.getRender_drawtime().isNull());
        QVERIFY(trace.getRenderSource_v().isEmpty());
        QVERIFY(trace.getRenderOutage_v({0, 0, 400, 230}).isEmpty());
        trace.handlePanGesturePoint({0, 0}, startTime);
        trace.handlePanGesturePoint({9, 0}, startTime + 1.2349);
        QCOMPARE(trace.getRender_drawtime(), QStringLiteral("1234"));
    }

    void isEmptyAfterAReset()
    {
        QVRenderTrace trace = traceIn({400, 230});
        addLine(trace, 20, 7.0);
        trace.resetDataSource();
        QVERIFY(trace.originalRenderPoints().empty());
        QVERIFY(trace.screeningRenderPoints().empty());
        QVERIFY(trace.renderSource().empty());
    }

    void findsCorners_data()
    {
        using Points = std::vector<QPointF>;
        QTest::addColumn<Points>("points");
        QTest::addColumn<Points>("corners");
        QTest::newRow("an L, its second corner before the first")
            << Points{{0, 0}, {1, 40}, {0, 80}, {0, 100}, {40, 100}, {100, 100}}
            << Points{{0, 0}, {1, 40}, {0, 100}, {100, 100}};
        QTest::newRow("a Z, its second corner after the first")
            << Points{{0, 0}, {50, 0}, {100, 0}, {50, 50}, {10, 90}, {100, 100}}
            << Points{{0, 0}, {100, 0}, {10, 90}, {100, 100}};
        QTest::newRow("equal areas keep the earlier point")
            << Points{{0, 0}, {10, 20}, {20, 20}, {30, 0}} << Points{{0, 0}, {10, 20}, {20, 20}, {30, 0}};
        QTest::newRow("straight: the first corner stays at 0, 0")
            << Points{{10, 10}, {20, 10}, {30, 10}, {40, 10}} << Points{{10, 10}, {0, 0}, {20, 10}, {40, 10}};
        QTest::newRow("no second corner: 0, 0 comes first")
            << Points{{10, 10}, {50, 60}, {90, 10}} << Points{{10, 10}, {0, 0}, {50, 60}, {90, 10}};
        QTest::newRow("one point") << Points{{7, 8}} << Points{{7, 8}, {0, 0}, {0, 0}, {7, 8}};
    }

    void findsCorners()
    {
        QFETCH(std::vector<QPointF>, points);
        const auto corners = qv_traceCorners(points);
        QTEST(std::vector<QPointF>(corners.begin(), corners.end()), "corners");
    }

    void writesTheOutagePayloadRelativeToThePicture()
    {
        QVRenderTrace trace = traceIn({600, 600});
        // A staircase through the grid of a picture that lies 100 right of and 200 below the view's corner.
        for (const QPointF point :
             {QPointF(110, 210), QPointF(310, 210), QPointF(310, 390), QPointF(490, 390)})
            trace.handlePanGesturePoint(point, startTime);
        QCOMPARE(trace.getRenderOutage_v({100, 200, 400, 200}), QStringLiteral("02ef"));
        QCOMPARE(trace.getRenderOutage_v({0, 0, 0, 0}), QStringLiteral("ffff"));
    }

    void aStraightOutageStrokeHasACornerOutsideThePicture()
    {
        QVRenderTrace trace = traceIn({600, 600});
        for (int i = 0; i < 12; ++i)
            trace.handlePanGesturePoint({110.0 + 30 * i, 210}, startTime);
        QCOMPARE(trace.getRenderOutage_v({100, 200, 400, 200}).mid(1, 1), QStringLiteral("f"));
    }
};

QV_TEST(TestRenderTrace)
#include "TestRenderTrace.moc"
