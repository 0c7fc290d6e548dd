#include "platform/QVTimer.h"
#include "support/QVTestCase.h"

#include <QAbstractEventDispatcher>
#include <QDateTime>

#include <algorithm>
#include <cmath>

using namespace std::chrono_literals;

class TestScheduler : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theWallClockTellsFractionsOfAMillisecond()
    {
        QVScheduler::setShared(nullptr);
        const auto reading = [] {
            return QVScheduler::shared().secondsSince1970();
        };
        QVERIFY(std::abs(reading() * 1000 - double(QDateTime::currentMSecsSinceEpoch())) < 1000);
        double finest = 1;
        for (int count = 0; count < 100; ++count) {
            const double start = reading();
            double next = start;
            while (next == start)
                next = reading();
            finest = std::min(finest, next - start);
        }
        QVERIFY(finest < 0.0005);
    }

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

    void realTimeIsNeverEarlyAndHardlyLate()
    {
        QVScheduler::setShared(nullptr);
        QVScheduler &real = QVScheduler::shared();
        // A coarse timer shows after seconds only; Qt says which are.
        const auto kinds = [timers = dynamic_cast<QObject *>(&real)] {
            QList<Qt::TimerType> result;
            for (const auto &timer : QAbstractEventDispatcher::instance()->registeredTimers(timers))
                result.append(timer.timerType);
            return result;
        };
        for (const auto delay : {std::chrono::nanoseconds(8s), std::chrono::nanoseconds(179s)}) {
            const QVScheduler::TaskId task = real.schedule(delay, [] {});
            QCOMPARE(kinds(), {Qt::PreciseTimer});
            real.cancel(task);
        }
        for (const auto delay : {1400us, 3999us, 20100us}) {
            const auto start = real.now();
            std::chrono::nanoseconds waited{0};
            real.schedule(delay, [&] { waited = real.now() - start; });
            QVERIFY(waitFor([&] { return waited.count() > 0; }));
            QVERIFY(waited >= delay);
        }
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
