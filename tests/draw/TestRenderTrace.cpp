#include "draw/QVRenderTrace.h"
#include "draw/QVTraceCorners.h"
#include "draw/QVTraceEncoding.h"
#include "support/QVTestCase.h"

#include <limits>
#include <stdexcept>

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

} // namespace

class TestRenderTrace : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void dropsWhatIsTooCloseToTheLastKeptPoint()
    {
        const QVCases<QPointF, std::size_t> cases{{{105, 100}, 2}, {{95, 100}, 2},      {{100, 105}, 2},
                                                  {{100, 95}, 2},  {{104.9, 104.9}, 1}, {{100, 100}, 1}};
        for (const auto &[point, kept] : cases) {
            QVRenderTrace trace = traceIn({400, 230});
            trace.handlePanGesturePoint({100, 100}, startTime);
            trace.handlePanGesturePoint(point, startTime);
            QCOMPARE(trace.originalRenderPoints().size(), std::size_t(2));
            QCOMPARE(trace.screeningRenderPoints().size(), kept);
            QCOMPARE(trace.renderSource().size(), kept);
        }
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
        const auto row = addColumns<QSizeF, QPointF, QPoint>({"size", "point", "expected"});
        constexpr double nan = std::numeric_limits<double>::quiet_NaN();
        constexpr double endless = std::numeric_limits<double>::infinity();
        row("by unequal factors", QSizeF(320, 184), QPointF(160, 92), QPoint(200, 66));
        row("by the width alone", QSizeF(414, 736), QPointF(207, 414), QPoint(200, 230));
        row("left of and above the view", QSizeF(320, 184), QPointF(-4, -9), QPoint(0, 0));
        row("far outside the view", QSizeF(320, 184), QPointF(1e9, 1e9), QPoint(159999, 159999));
        row("not a number", QSizeF(320, 184), QPointF(nan, 92), QPoint(0, 66));
        row("a view of no width", QSizeF(0, 100), QPointF(3, 0), QPoint(159999, 0));
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

    void acceptsFrom10To80Points()
    {
        for (const int count : {0, 9, 10, 80, 81}) {
            QVRenderTrace trace = traceIn({400, 230});
            for (int i = 0; i < count; ++i)
                trace.handlePanGesturePoint({i * 5.0, 10}, startTime + i * 0.0625);
            QCOMPARE(trace.isAcceptable(), count >= 10 && count <= 80);
        }
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
        QCOMPARE(trace.getRender_drawtime(), q("0"));
    }

    void writesThePayload()
    {
        QVRenderTrace trace = traceIn({400, 400});
        trace.handlePanGesturePoint({12.9, 12.9}, startTime);
        trace.handlePanGesturePoint({30.5, 12.9}, startTime + 0.0457);
        QCOMPARE(trace.getRenderSource_v(), q("kkdkqpkk6kk6kkkkrj"));
        QCOMPARE(trace.getRender_drawtime(), q("45"));
        trace.resetDataSource();
        QVERIFY(trace.getRender_drawtime().isNull());
        QVERIFY(trace.getRenderSource_v().isEmpty() && trace.getRenderOutage_v({0, 0, 400, 230}).isEmpty());
    }

    void writesNumbers()
    {
        // The digit of 400 is left out.
        const QVCases<quint64, const char *> cases{{0, "kkk"},   {12, "kkd"},   {20, "kqk"},    {399, "kzz"},
                                                   {400, "kkk"}, {8000, "qkk"}, {159999, "zzz"}};
        for (const auto &[number, digits] : cases)
            QCOMPARE(convertTo20(number), q(digits));
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, (void)convertTo20(160000));
    }

    void findsCells()
    {
        constexpr double nan = std::numeric_limits<double>::quiet_NaN();
        const QSizeF size(400, 200);
        const QVCases<QSizeF, QPointF, const char *> cases{{size, {399, 199}, "f"},
                                                           {size, {100, 50}, "5"},
                                                           {size, {-0.1, 0}, "3"},
                                                           {size, {100, -1e300}, "d"},
                                                           {{0, 0}, {nan, nan}, "0"}};
        for (const auto &[frame, point, digit] : cases)
            QCOMPARE(converTo16WithSize(frame, point.x(), point.y()), q(digit));
    }

    void findsCorners_data()
    {
        using Points = std::vector<QPointF>;
        const auto row = addColumns<Points, Points>({"points", "corners"});
        row("an L, its second corner before the first",
            Points{{0, 0}, {1, 40}, {0, 80}, {0, 100}, {40, 100}, {100, 100}},
            Points{{0, 0}, {1, 40}, {0, 100}, {100, 100}});
        row("a Z, its second corner after the first",
            Points{{0, 0}, {50, 0}, {100, 0}, {50, 50}, {10, 90}, {100, 100}},
            Points{{0, 0}, {100, 0}, {10, 90}, {100, 100}});
        row("equal areas keep the earlier point", Points{{0, 0}, {10, 20}, {20, 20}, {30, 0}},
            Points{{0, 0}, {10, 20}, {20, 20}, {30, 0}});
        row("straight: the first corner stays at 0, 0", Points{{10, 10}, {20, 10}, {30, 10}, {40, 10}},
            Points{{10, 10}, {0, 0}, {20, 10}, {40, 10}});
        row("no second corner: 0, 0 comes first", Points{{10, 10}, {50, 60}, {90, 10}},
            Points{{10, 10}, {0, 0}, {50, 60}, {90, 10}});
        row("one point", Points{{7, 8}}, Points{{7, 8}, {0, 0}, {0, 0}, {7, 8}});
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
        QCOMPARE(trace.getRenderOutage_v({100, 200, 400, 200}), q("02ef"));
        QCOMPARE(trace.getRenderOutage_v({0, 0, 0, 0}), q("ffff"));
    }
};

QV_TEST(TestRenderTrace)
#include "TestRenderTrace.moc"
