#include "draw/DrawTestCase.h"
#include "flow/QVRenderTrace.h"
#include "sandbox/QVSandbox.h"
#include "sandbox/SandboxTrace.h"
#include "settings/QVSDKManager.h"

#include <QRandomGenerator>

using namespace std::chrono_literals;

/// The whole component against a service that decodes and judges with code of its own.
class TestDrawSandbox : public DrawTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void strokesAreDecodedAsTheyWereRecorded()
    {
        QRandomGenerator random(20);
        constexpr double width = 320;
        for (int run = 0; run < 200; ++run) {
            QVRenderTrace trace;
            trace.setFrame({0, 0, width, 180.0 + run});
            trace.setPanGestureStartTime(1704067200.0);
            QPointF point(random.bounded(width), random.bounded(200.0));
            const int count = random.bounded(10, 81);
            for (int i = 0; i < count; ++i) {
                trace.handlePanGesturePoint(point, 1704067200.0 + i * 0.07);
                // Beyond the last column a stroke would wrap around, as the service knows.
                point.setX(std::clamp(point.x() + random.bounded(5, 15) * (random.bounded(2) ? 1 : -1), 0.0,
                                      width - 1));
                point.setY(std::clamp(point.y() + 5 + random.bounded(10.0), 0.0, 500.0));
            }
            if (!trace.isAcceptable())
                continue;
            const auto decoded = SandboxTrace::decode(trace.getRenderSource_v());
            QVERIFY(decoded);
            QVERIFY(decoded->agreesWithDrawtime(trace.getRender_drawtime()));
            QCOMPARE(std::size_t(decoded->points.size()), trace.renderSource().size());
            for (std::size_t i = 0; i < trace.renderSource().size(); ++i) {
                const QPointF seen = decoded->points[qsizetype(i)];
                QCOMPARE(seen.x(), double(trace.renderSource()[i].pointX()));
                QCOMPARE(seen.y() * 230 / 400, double(trace.renderSource()[i].pointY()));
            }
        }
    }

    void passesWhoDrawsTheCurve_data()
    {
        const auto row = addColumns<int, QSize, bool, bool>({"style", "size", "isOutage", "isBackwards"});
        row("embedded", 0, QSize(400, 270), false, false);
        row("embedded, small, backwards", 0, QSize(320, 186), false, true);
        row("embedded, flat", 0, QSize(878, 287), false, false);
        row("embedded, flat and wide", 0, QSize(1378, 287), false, false);
        row("embedded, tall", 0, QSize(300, 600), false, false);
        row("outage, flat", 0, QSize(878, 287), true, false);
        row("popup, small", 1, QSize(320, 480), false, false);
        row("outage", 0, QSize(400, 270), true, false);
    }

    void passesWhoDrawsTheCurve()
    {
        QFETCH(int, style);
        QFETCH(QSize, size);
        QFETCH(bool, isOutage);
        QFETCH(bool, isBackwards);
        m_sandbox->setOutageActive(isOutage);
        QVSDKManager::setQuarvoSDKVid(q("test-draw"), q("1"));
        start(QVVerifyStyle(style), size);
        if (isOutage) {
            // Its pictures are named to the client alone, who then names them in its first try.
            draw();
            QVERIFY(waitForWrongAnswer());
        }
        auto points = curve();
        if (isBackwards)
            std::ranges::reverse(points);
        QVPointerInput::strokeWithMouse(view(), points, [this] { advance(25ms); });
        QVERIFY(waitFor([this] { return bar() == QLatin1String("successOverlayView"); }));
        advance(1s);
        QCOMPARE(listener.tokens.size(), 1);
        QVERIFY(!listener.tokens.first().isEmpty());
    }

private:
    void prepare() override
    {
        DrawTestCase::prepare();
        QVSandboxOptions options;
        options.seed = 7;
        options.clock = [] {
            return std::chrono::duration_cast<std::chrono::milliseconds>(QVScheduler::shared().now());
        };
        m_sandbox = std::make_unique<QVSandbox>(options);
        QVERIFY2(m_sandbox->listen(), qPrintable(m_sandbox->errorString()));
        const QVSandboxAddresses where = m_sandbox->addresses();
        QVServiceAddresses addresses;
        addresses.setApiHost(where.apiHost);
        addresses.setDownloadHost(where.downloadHost);
        addresses.setImageHost(where.imageHost);
        addresses.setCdn(where.cdn);
        QVSDKManager::setServiceAddresses(addresses);
        QVSDKManager::setOutageServer(where.outageServer);
    }

    void finish() override
    {
        DrawTestCase::finish();
        m_sandbox.reset();
    }

    /// The challenge that was last asked about.
    [[nodiscard]] QString challenge() const
    {
        QString last;
        for (const QVSandboxLogEntry &entry : m_sandbox->log())
            last = entry.values.value(q("challenge"), last);
        return last;
    }

    [[nodiscard]] QVPointerInput::Points curve()
    {
        const QRect image = frame("imageView");
        QVPointerInput::Points points;
        const auto solution = m_sandbox->solution(challenge());
        if (!solution)
            return {image.center(), image.center()};
        for (const QPointF point : solution->points)
            points.push_back(image.topLeft() + (point * image.width() / 400).toPoint());
        return points;
    }

    std::unique_ptr<QVSandbox> m_sandbox;
};

QV_TEST(TestDrawSandbox)
#include "TestDrawSandbox.moc"
