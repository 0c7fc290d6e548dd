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

} // namespace

class TestTicker : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void runsOnlyWithClients()
    {
        QVTicker::shared().setRefreshRate(60);
        Client client;
        const auto origin = time().now();
        client.start();
        client.start();
        QCOMPARE(time().pendingCount(), 1);
        advance(10s);
        // On a grid, without drift.
        QCOMPARE(client.times.size(), 600U);
        QCOMPARE((client.times.back() - origin).count(), std::chrono::nanoseconds(10s).count());
        client.stop();
        QCOMPARE(time().pendingCount(), 0);
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
    }

private:
    void finish() override { QVTicker::shared().setRefreshRate(0); }
};

QV_TEST(TestTicker)
#include "TestTicker.moc"
