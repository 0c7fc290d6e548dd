#include "flow/QVPassText.h"
#include "flow/QVRenderTrace.h"
#include "flow/QVStrokePath.h"
#include "flow/QVTraceCorners.h"
#include "flow/QVTraceEncoding.h"
#include "service/QVVerifyResponseModel.h"
#include "settings/QVSDKManager.h"
#include "support/QVTestCase.h"

#include <QImage>
#include <QPainter>

#include <cmath>
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
    void aStrokeThatCrossesItselfIsPaintedInAnyAreas()
    {
        QVStrokePath stroke;
        for (int i = 0; i < 90; ++i)
            (void)stroke.addLineTo({100 + 80 * std::cos(i * 1.3), 60 + 40 * std::sin(i * 1.7)});
        QImage whole(200, 120, QImage::Format_RGB32);
        whole.fill(Qt::white);
        QImage parts = whole;
        const auto paint = [&stroke](QImage &image, const QRect &area) {
            QPainter painter(&image);
            painter.setClipRect(area);
            stroke.paint(painter, area, Qt::blue);
        };
        paint(whole, whole.rect());
        for (int x = 0; x < whole.width(); x += 20)
            paint(parts, {x, 0, 20, whole.height()});
        QCOMPARE(parts, whole);
    }

    void keepsPoints_data()
    {
        // Positions in the view and seconds; positions in picture units and milliseconds.
        const auto row = addColumns<QSizeF, QString, QString>({"size", "reported", "kept"});
        const QSizeF usual(400, 230);
        const QSizeF small(320, 184);
        row("5 apart", usual, q("100 100 0, 105 100 0, 100 100 0, 100 105 0, 100 100 0"),
            q("100 57 0, 105 57 0, 100 57 0, 100 60 0, 100 57 0"));
        row("less than 5 apart", usual, q("100 100 0, 104.9 104.9 0, 95.1 95.1 0, 100 100 0"), q("100 57 0"));
        row("5 from the last kept one", usual, q("0 0 0, 3 0 0, 6 0 0, 9 0 0, 12 0 0"),
            q("0 0 0, 6 0 0, 12 0 0"));
        // By unequal factors, but by the width alone in a view of another shape; never negative, never
        // beyond.
        row("small", small, q("160 92 0"), q("200 66 0"));
        row("tall", QSizeF(414, 736), q("207 414 0"), q("200 230 0"));
        row("negative", small, q("-4 -9 0"), q("0 0 0"));
        row("far", small, q("1e9 1e9 0"), q("159999 159999 0"));
        row("no number", small, q("nan 92 0"), q("0 66 0"));
        row("no width", QSizeF(0, 100), q("3 0 0"), q("159999 0 0"));
        row("8 seconds", usual, q("0 0 9, 10 0 7.9990234375, 20 0 8, 30 0 4"),
            q("0 0 9000, 10 0 7999, 30 0 4000"));
        row("a clock that goes back", usual, q("0 0 0, 10 0 -3600, 20 0 nan"), q("0 0 0, 10 0 0"));
    }

    void keepsPoints()
    {
        QFETCH(QSizeF, size);
        QFETCH(QString, reported);
        QVRenderTrace trace = traceIn(size);
        for (const QString &point : reported.split(q(", "))) {
            const QStringList values = point.split(u' ');
            trace.handlePanGesturePoint({values[0].toDouble(), values[1].toDouble()},
                                        startTime + values[2].toDouble());
        }
        QStringList kept;
        for (const QVRenderDrawPointModel &point : trace.renderSource())
            kept.append(q("%1 %2 %3").arg(point.pointX()).arg(point.pointY()).arg(point.pointTimeInterval()));
        QTEST(kept.join(q(", ")), "kept");
        QCOMPARE(trace.getRenderSource_v().size(), 9 * kept.size());
        QCOMPARE(trace.originalRenderPoints().size(), std::size_t(reported.split(u',').size()));
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

    void isToldWithTimeAndScore()
    {
        QVSDKManager::setPreferredLanguage(q("en"));
        QVVerifyResponseModel answer;
        answer.setDrawtime(q("1234"));
        QCOMPARE(qv_passText(answer), q("Verified"));
        answer.setPassline(q(""));
        QCOMPARE(qv_passText(answer), q("Verified"));
        answer.setPassline(q("60"));
        answer.setScore(q("<b>5</b>"));
        // A tie goes to even.
        const QVCases<QString, QString> cases{{q("1960"), q("2.0")},  {q("1250"), q("1.2")},
                                              {q("soon"), q("0.0")},  {QString(), q("0.0")},
                                              {q("1e999"), q("0.0")}, {q(" 4200ms"), q("4.2")}};
        for (const auto &[drawtime, shown] : cases) {
            answer.setDrawtime(drawtime);
            QCOMPARE(qv_passText(answer), q("%1 s, better than <b>5</b>% of users").arg(shown));
        }
    }
};

QV_TEST(TestRenderTrace)
#include "TestRenderTrace.moc"
