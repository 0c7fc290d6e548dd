#include "draw/DrawTestCase.h"
#include "sandbox/QVSandbox.h"
#include "settings/QVSDKManager.h"

using namespace std::chrono_literals;

/// The whole component against the sandbox, which shares no code with it to decode and judge traces.
class TestDrawSandbox : public DrawTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void passesWhoDrawsTheCurve_data()
    {
        const auto row = addColumns<int, QSize, bool, bool>({"style", "size", "isOutage", "isBackwards"});
        row("embedded, small, backwards", 0, QSize(320, 186), false, true);
        row("embedded, flat and wide", 0, QSize(1378, 287), false, false);
        row("embedded, tall", 0, QSize(300, 600), false, false);
        row("outage, flat", 0, QSize(878, 287), true, false);
        row("popup, small", 1, QSize(320, 480), false, false);
    }

    void passesWhoDrawsTheCurve()
    {
        QFETCH(int, style);
        QFETCH(QSize, size);
        QFETCH(bool, isOutage);
        QFETCH(bool, isBackwards);
        m_sandbox->setOutageActive(isOutage);
        QVSDKManager::setQuarvoSDKVid(q("test-draw"), q("1"));
        startWithPicture(QVVerifyStyle(style), size);
        if (isOutage) {
            // The log of the sandbox has the name of an outage picture only after a first attempt on it.
            QVPointerInput::strokeWithMouse(*view(), stroke(), [this] { advance(20ms); });
            QVERIFY(waitForTold("wrong"));
        }
        auto points = curve();
        if (isBackwards)
            std::ranges::reverse(points);
        QVPointerInput::strokeWithMouse(*view(), points, [this] { advance(25ms); });
        QVERIFY(waitForTold("passed"));
        advance(1s);
        QVERIFY(told.last().size() > 10);
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

    /// The curve of the latest picture.
    [[nodiscard]] QVPointerInput::Points curve() const
    {
        QString challenge;
        for (const QVSandboxLogEntry &entry : m_sandbox->log())
            challenge = entry.values.value(q("challenge"), challenge);
        const QRect image = frame(q("imageView"));
        QVPointerInput::Points points;
        const auto solution = m_sandbox->solution(challenge);
        for (const QPointF point : solution->points)
            points.push_back(image.topLeft() + (point * image.width() / 400).toPoint());
        return points;
    }

    std::unique_ptr<QVSandbox> m_sandbox;
};

QV_TEST(TestDrawSandbox)
#include "TestDrawSandbox.moc"
