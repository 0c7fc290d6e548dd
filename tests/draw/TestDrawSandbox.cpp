#include "draw/DrawTestCase.h"
#include "draw/QVRenderDrawView.h"
#include "draw/QVRenderTrace.h"
#include "sandbox/QVSandbox.h"
#include "sandbox/SandboxTrace.h"
#include "settings/QVSDKManager.h"
#include "views/QVCharVerifyTextField.h"

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
            trace.setFrameSize({width, 180.0 + run});
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
        QTest::addColumn<int>("style");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("isOutage");
        QTest::addColumn<bool>("isBackwards");
        QTest::newRow("embedded") << 0 << QSize(400, 270) << false << false;
        QTest::newRow("embedded, small, backwards") << 0 << QSize(320, 216) << false << true;
        QTest::newRow("popup") << 1 << QSize(414, 520) << false << false;
        QTest::newRow("popup, small") << 1 << QSize(320, 480) << false << false;
        QTest::newRow("outage") << 0 << QSize(400, 270) << true << false;
    }

    void passesWhoDrawsTheCurve()
    {
        QFETCH(int, style);
        QFETCH(QSize, size);
        QFETCH(bool, isOutage);
        QFETCH(bool, isBackwards);
        m_sandbox->setOutageActive(isOutage);
        QVSDKManager::setQuarvoSDKVid(QStringLiteral("test-draw"), QStringLiteral("1"));
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

    void refusesWhoDrawsSomethingElse()
    {
        QVSDKManager::setQuarvoSDKVid(QStringLiteral("test-draw"), QStringLiteral("1"));
        start(QVVerifyStyleEmbed, QSize(400, 270));
        const QRect image = frame("imageView");
        auto points = curve();
        for (QPoint &point : points)
            point.setY(image.top() + image.bottom() - point.y() / 3 + 20);
        QVPointerInput::strokeWithMouse(view(), points, [this] { advance(25ms); });
        QVERIFY(waitForWrongAnswer());
    }

    void passesWhoTypesTheCharacters()
    {
        QVSDKManager::setQuarvoSDKVid(QStringLiteral("test-character"), QStringLiteral("1"));
        start(QVVerifyStyleEmbed, QSize(400, 270));
        auto *field = part<QVCharVerifyTextField>("inputTF");
        QVPointerInput::click(*field, field->rect().center());
        QTest::keyClicks(field, m_sandbox->solution(challenge())->characters);
        click("doneButton");
        QVERIFY(waitFor([this] { return bar() == QLatin1String("successOverlayView"); }));
        advance(1s);
        QCOMPARE(listener.tokens.size(), 1);
    }

    void meetsEachTestId_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<QString>("text");
        QTest::newRow("denied") << "test-denied"
                                << "Access denied";
        QTest::newRow("fast") << "test-fast"
                              << "Refreshing too fast. Please wait a moment.";
        QTest::newRow("expired") << "test-expired"
                                 << "Verification expired. Please try again.";
        QTest::newRow("no JSON") << "test-badjson"
                                 << "System error: request failed";
        QTest::newRow("broken picture") << "test-broken-picture"
                                        << "The picture could not be loaded";
    }

    void meetsEachTestId()
    {
        QFETCH(QString, id);
        QVSDKManager::setQuarvoSDKVid(id, QStringLiteral("1"));
        show(QVVerifyStyleEmbed);
        advance(100ms);
        QVERIFY(waitForFailure());
        QTEST(barText(), "text");
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
            last = entry.values.value(QStringLiteral("challenge"), last);
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
