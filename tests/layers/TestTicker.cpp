#include "layers/QVTicker.h"
#include "support/QVTestCase.h"

using namespace std::chrono_literals;

namespace {

struct Client : QVTickerClient
{
    ~Client() override { QVTicker::shared().stop(this); }

    void start() { QVTicker::shared().start(this); }
    void stop() { QVTicker::shared().stop(this); }

    void tick(Time time) override
    {
        times.push_back(time);
        if (action)
            std::exchange(action, {})();
    }

    std::vector<Time> times;
    std::function<void()> action;
};

/// A clock whose tasks come as late as the test likes.
class LateScheduler : public QVScheduler
{
public:
    LateScheduler() { setShared(this); }

    [[nodiscard]] std::chrono::nanoseconds now() const override { return m_now; }
    [[nodiscard]] double secondsSince1970() const override { return 0; }
    TaskId schedule(std::chrono::nanoseconds delay, Action action) override
    {
        m_due = m_now + delay;
        m_action = std::move(action);
        return 1;
    }
    void cancel(TaskId) override { m_action = {}; }
    [[nodiscard]] qsizetype pendingCount() const override { return m_action ? 1 : 0; }

    void runLateBy(std::chrono::nanoseconds lateness)
    {
        m_now = m_due + lateness;
        std::exchange(m_action, {})();
    }

private:
    std::chrono::nanoseconds m_now{};
    std::chrono::nanoseconds m_due{};
    Action m_action;
};

} // namespace

class TestTicker : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void runsOnlyWithClients()
    {
        QCOMPARE(time().pendingCount(), 0);
        Client client;
        client.start();
        client.start();
        QCOMPARE(time().pendingCount(), 1);
        advance(50ms);
        QCOMPARE(client.times.size(), 3U);
        client.stop();
        QCOMPARE(time().pendingCount(), 0);
        QVERIFY(!QVTicker::shared().isRunning());
        advance(1s);
        QCOMPARE(client.times.size(), 3U);
    }

    void ticksLieOnAGrid()
    {
        QVTicker::shared().setRefreshRate(60);
        Client client;
        const auto origin = time().now();
        client.start();
        advance(10s);
        QCOMPARE(client.times.size(), 600U);
        QCOMPARE((client.times.at(299) - origin).count(), std::chrono::nanoseconds(5s).count());
        QCOMPARE((client.times.back() - origin).count(), std::chrono::nanoseconds(10s).count());
    }

    void lateTickSkipsFramesAndStaysOnTheGrid()
    {
        LateScheduler late;
        QVTicker::shared().setRefreshRate(100);
        {
            Client client;
            client.start();
            for (const auto lateness : {0ms, 1ms, 9ms, 35ms, 0ms})
                late.runLateBy(lateness);
            QCOMPARE(milliseconds(client, {}), (std::vector<qint64>{10, 20, 30, 70, 80}));
        }
        QCOMPARE(late.pendingCount(), 0);
        QVScheduler::setShared(&time());
    }

    void goesOnInAnEventLoopInsideATick()
    {
        QVTicker::shared().setRefreshRate(100);
        Client client;
        const auto origin = time().now();
        client.action = [&] {
            time().advance(35ms);
        };
        client.start();
        advance(20ms);
        QCOMPARE(milliseconds(client, origin), (std::vector<qint64>{10, 20, 30, 40}));
        advance(10ms);
        QCOMPARE(milliseconds(client, origin).back(), 50);
    }

    void clientsOfATickShareItsTime()
    {
        Client first;
        Client second;
        std::chrono::nanoseconds seen{};
        first.start();
        advance(5ms);
        second.start();
        second.action = [&] {
            seen = QVTicker::shared().time();
        };
        advance(20ms);
        QCOMPARE(second.times.size(), 1U);
        QCOMPARE(first.times.back().count(), second.times.back().count());
        QCOMPARE(seen.count(), second.times.back().count());
        QCOMPARE(QVTicker::shared().time().count(), time().now().count());
    }

    void changesDuringATickAreSafe()
    {
        auto doomed = std::make_unique<Client>();
        Client leader;
        Client stopped;
        Client late;
        leader.start();
        doomed->start();
        stopped.start();
        leader.action = [&] {
            doomed.reset();
            stopped.stop();
            late.start();
        };
        advance(17ms);
        QCOMPARE(leader.times.size(), 1U);
        QCOMPARE(stopped.times.size(), 0U);
        QCOMPARE(late.times.size(), 0U);
        advance(17ms);
        QCOMPARE(leader.times.size(), 2U);
        QCOMPARE(late.times.size(), 1U);
        leader.action = [&] {
            late.stop();
            leader.stop();
        };
        advance(17ms);
        QCOMPARE(time().pendingCount(), 0);
    }

    void lastClientMayEndAndAnotherBeginInOneTick()
    {
        Client first;
        Client second;
        first.start();
        first.action = [&] {
            first.stop();
            second.start();
        };
        advance(100ms);
        QCOMPARE(first.times.size(), 1U);
        QCOMPARE(second.times.size(), 5U);
    }

private:
    static std::vector<qint64> milliseconds(const Client &client, std::chrono::nanoseconds origin)
    {
        std::vector<qint64> result;
        for (const auto stamp : client.times)
            result.push_back((stamp - origin) / 1ms);
        return result;
    }

    void finish() override { QVTicker::shared().setRefreshRate(0); }
};

QV_TEST(TestTicker)
#include "TestTicker.moc"
