#include "platform/QVTimer.h"
#include "support/QVTestCase.h"

#include <QAbstractEventDispatcher>
#include <QDateTime>

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
        QVERIFY(waitFor([&] { return std::fmod(reading() * 1000, 1) > 0.01; }));
    }

    void realTimeRunsAfterTheCallAndIsNeverEarly()
    {
        QVScheduler::setShared(nullptr);
        QVScheduler &real = QVScheduler::shared();
        QList<int> runs;
        const auto start = real.now();
        for (const int microseconds : {20100, 3999, 1400, 0}) {
            const auto delay = std::chrono::microseconds(microseconds);
            real.schedule(delay, [&runs, &real, start, delay] {
                runs.append(real.now() - start >= delay ? int(delay.count()) : -1);
            });
        }
        real.cancel(real.schedule(0ms, [&runs] { runs.append(-2); }));
        // A coarse timer would be late only by seconds after minutes, so the type of the timer is looked at.
        const QVScheduler::TaskId late = real.schedule(179s, [] {});
        for (const auto &timer :
             QAbstractEventDispatcher::instance()->registeredTimers(dynamic_cast<QObject *>(&real)))
            QCOMPARE(timer.timerType, Qt::PreciseTimer);
        real.cancel(late);
        QCOMPARE(runs, QList<int>());
        QCOMPARE(real.pendingCount(), 4);
        QVERIFY(waitFor([&runs] { return runs.size() == 4; }));
        QCOMPARE(runs, QList<int>({0, 1400, 3999, 20100}));
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
