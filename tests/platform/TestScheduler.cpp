#include "platform/QVTimer.h"
#include "support/QVTestCase.h"

using namespace std::chrono_literals;

class TestScheduler : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:

    void realTimeRunsAfterTheCallAndForgetsTheTask()
    {
        QVScheduler::setShared(nullptr);
        QVScheduler &real = QVScheduler::shared();
        int runs = 0;
        real.schedule(0ms, [&] { ++runs; });
        real.cancel(real.schedule(0ms, [&] { runs += 100; }));
        QCOMPARE(runs, 0);
        QCOMPARE(real.pendingCount(), 1);
        QVERIFY(waitFor([&] { return runs == 1; }));
        QCOMPARE(real.pendingCount(), 0);
    }

    void timerEndsWithItsOwner()
    {
        int runs = 0;
        {
            QVTimer timer;
            timer.start(10ms, [&] { ++runs; });
        }
        QCOMPARE(time().pendingCount(), 0);
        auto timer = std::make_unique<QVTimer>();
        timer->start(10ms, [&] { ++runs; });
        timer->start(30ms, [&] {
            timer.reset();
            runs += 10;
        });
        advance(40ms);
        QCOMPARE(runs, 10);
    }
};

QV_TEST(TestScheduler)
#include "TestScheduler.moc"
