#include "flow/QVRenderTrace.h"
#include "flow/QVTraceCorners.h"
#include "flow/QVTraceEncoding.h"
#include "support/QVTestCase.h"

#include <limits>
#include <stdexcept>

namespace {

// Times are given to a trace as seconds since 1970; a round start keeps the arithmetic exact.
constexpr double startTime = 1704067200.0;

QVRenderTrace traceIn(QSizeF size)
{
    QVRenderTrace trace;
    trace.setFrame({{}, size});
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

    void scales()
    {
        constexpr double nan = std::numeric_limits<double>::quiet_NaN();
        const QSizeF small(320, 184);
        // By unequal factors, but by the width alone in a view of another shape; never negative, never
        // beyond.
        const QVCases<QSizeF, QPointF, QPoint> cases{
            {small, {160, 92}, {200, 66}}, {{414, 736}, {207, 414}, {200, 230}},
            {small, {-4, -9}, {0, 0}},     {small, {1e9, 1e9}, {159999, 159999}},
            {small, {nan, 92}, {0, 66}},   {{0, 100}, {3, 0}, {159999, 0}}};
        for (const auto &[size, point, expected] : cases) {
            QVRenderTrace trace = traceIn(size);
            trace.handlePanGesturePoint(point, startTime);
            const QVRenderDrawPointModel kept = trace.renderSource().front();
            QCOMPARE(QPoint(static_cast<int>(kept.pointX()), static_cast<int>(kept.pointY())), expected);
            QCOMPARE(trace.getRenderSource_v().size(), 9);
        }
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

    void findsCorners()
    {
        using Points = std::vector<QPointF>;
        const QVCases<Points, Points> cases{
            // The second corner before the first, and after it.
            {{{0, 0}, {1, 40}, {0, 80}, {0, 100}, {40, 100}, {100, 100}},
             {{0, 0}, {1, 40}, {0, 100}, {100, 100}}},
            {{{0, 0}, {50, 0}, {100, 0}, {50, 50}, {10, 90}, {100, 100}},
             {{0, 0}, {100, 0}, {10, 90}, {100, 100}}},
            // Equal areas keep the earlier point; what is not found stays at 0, 0.
            {{{0, 0}, {10, 20}, {20, 20}, {30, 0}}, {{0, 0}, {10, 20}, {20, 20}, {30, 0}}},
            {{{10, 10}, {20, 10}, {30, 10}, {40, 10}}, {{10, 10}, {0, 0}, {20, 10}, {40, 10}}},
            {{{10, 10}, {50, 60}, {90, 10}}, {{10, 10}, {0, 0}, {50, 60}, {90, 10}}},
            {{{7, 8}}, {{7, 8}, {0, 0}, {0, 0}, {7, 8}}}};
        for (const auto &[points, expected] : cases) {
            const auto corners = qv_traceCorners(points);
            QCOMPARE(Points(corners.begin(), corners.end()), expected);
        }
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
