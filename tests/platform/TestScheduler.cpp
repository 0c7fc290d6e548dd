#include "platform/QVQtScheduler.h"
#include "platform/QVTimer.h"
#include "support/QVTestCase.h"

using namespace std::chrono_literals;

class TestScheduler : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void virtualTimeRunsInOrder()
    {
        QStringList seen;
        QVScheduler &scheduler = QVScheduler::shared();
        scheduler.schedule(20ms, [&] { seen.append(QStringLiteral("late")); });
        scheduler.schedule(10ms, [&] {
            seen.append(QStringLiteral("early"));
            scheduler.schedule(5ms, [&] { seen.append(QStringLiteral("nested")); });
        });
        const auto cancelled = scheduler.schedule(1ms, [&] { seen.append(QStringLiteral("never")); });
        scheduler.cancel(cancelled);
        QVERIFY(seen.isEmpty());
        advance(20ms);
        QCOMPARE(seen,
                 QStringList({QStringLiteral("early"), QStringLiteral("nested"), QStringLiteral("late")}));
    }

    void realTimeRunsAfterTheCallAndForgetsTheTask()
    {
        QVQtScheduler &real = QVQtScheduler::instance();
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
